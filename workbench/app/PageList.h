#ifndef PAGELIST_H
#define PAGELIST_H

#include <QWidget>

class QLineEdit;
class QListWidget;

/// The pages by their titles. They are turned by pointer, by Ctrl+PgUp and Ctrl+PgDown, by their
/// number while Ctrl is held (Ctrl with 1 and then 2 is the twelfth; 0 alone the tenth), and by
/// typing a part of a title into the line above, which Ctrl+F enters, and Return.
class PageList : public QWidget
{
    Q_OBJECT
public:
    explicit PageList(QWidget* parent = nullptr);

    void add(const QString& title);
    void turnTo(int page);
    /// Takes the width that its titles need in its font.
    void fit();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void turned(int page);

private:
    void takeDigit(int digit);
    void filter(const QString& part);
    void turnToFirstFound();

    QLineEdit* m_filter;
    QListWidget* m_list;
    int m_number = 0; // typed so far while Ctrl is held
};

#endif
