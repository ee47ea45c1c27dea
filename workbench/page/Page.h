#ifndef PAGE_H
#define PAGE_H

#include <QWidget>

class Command;

/// One page of the workbench. It sends through its signals and gets every answer of the module.
class Page : public QWidget
{
    Q_OBJECT
public:
    /// \param name as the command line knows it
    /// \param title as the page list shows it
    Page(const QString& name, const QString& title) : m_title(title) { setObjectName(name); }

    QString name() const { return objectName(); }
    QString title() const { return m_title; }

    /// Whether the page makes sense without a module.
    virtual bool worksAlone() const { return false; }

    /// The address of the module that all requests go to.
    virtual void setAddress(char address) { Q_UNUSED(address) }
    /// Asks for everything that the page shows: after connecting.
    virtual void refresh() {}
    /// Asks for what changes by itself: again and again while the page is shown.
    virtual void poll() {}
    /// Ends what the page has under way, so that nothing of it moves an axis any more: the user
    /// pressed the stop, or the link is about to close. The link is still open.
    virtual void giveUp() {}
    /// Whether the user is entering the value that this read asks for.
    virtual bool isEditing(const Command& request) const
    {
        Q_UNUSED(request)
        return false;
    }
    /// An answer, with success or failure.
    virtual void take(const Command& reply) { Q_UNUSED(reply) }

Q_SIGNALS:
    /// A command of the user.
    void command(const Command& request);
    /// A read. It waits while the value is being edited.
    void read(const Command& request);
    /// Something for the status bar.
    void message(const QString& text);
    /// How much of what the page fetches in the background is there. Both 0: it waits for the
    /// module; equal: it is over.
    void progressed(int done, int total);

private:
    QString m_title;
};

#endif
