#ifndef PAGE_H
#define PAGE_H

#include "PageContext.h"

#include <QWidget>

class Command;
class TourGuide;

/// One page of the workbench, known to it by an entry in the table of Pages.cpp. It sends through
/// its signals, gets every answer of the module, and knows no other page.
class Page : public QWidget
{
    Q_OBJECT
public:
    /// Whether the page makes sense without a module.
    virtual bool worksAlone() const { return false; }

    /// The address of the module that all requests go to: when a link opens.
    virtual void setAddress(char address) { Q_UNUSED(address) }
    /// Asks for everything that the page shows: after connecting.
    virtual void refresh() {}
    /// Asks for what changes by itself: again and again while the page is shown and the link has
    /// room for more reads.
    virtual void poll() {}
    /// Shows what changes with time: every 50 ms, shown or not, with a link or without.
    /// \param now the host's time, in ms since the epoch
    virtual void frame(qint64 now) { Q_UNUSED(now) }
    /// Ends what the page has under way, so that nothing of it moves an axis any more: the user
    /// pressed the stop, or the link is about to close. The link is still open.
    virtual void giveUp() {}
    /// The link has closed by itself, or could not be opened; giveUp() came before.
    virtual void linkLost() {}
    /// Whether the user is entering the value that this read asks for.
    virtual bool isEditing(const Command& request) const
    {
        Q_UNUSED(request)
        return false;
    }
    /// An answer, with success or failure.
    virtual void take(const Command& reply) { Q_UNUSED(reply) }

    /// The name of the link that connectLast() opens; empty for a page that opens none.
    virtual QString lastLink() const { return QString(); }
    /// Opens the link that was used last.
    virtual void connectLast() {}

    /// The page's steps of the tour, with the link open and both axes at rest; so it leaves them.
    /// By itself a page is shown and photographed.
    virtual void tour(TourGuide& guide);

Q_SIGNALS:
    /// A command of the user.
    void command(const Command& request);
    /// A read. It waits while the value is being edited.
    void read(const Command& request);
    /// A link is open. All requests go to `address`.
    void opened(const QString& link, char address);
    /// The link shall be closed.
    void closed();
    /// Something for the status bar.
    void message(const QString& text);
    /// How much of what the page fetches in the background is there. Both 0: it waits for the
    /// module; equal: it is over.
    void progressed(int done, int total);
};

#endif
