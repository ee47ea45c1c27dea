#ifndef FITTING_H
#define FITTING_H

#include <QVector>

class QTableView;
class QWidget;

/// What keeps a page readable at each font size.
namespace Fitting
{

/// The content in a scroll area that scrolls rather than squeezes it, so that no digit of a value
/// is ever cut off.
QWidget* scrolled(QWidget* content);

/// Keeps the columns as wide as their texts, and at least as wide as given (px).
void fitColumns(QTableView* table, const QVector<int>& atLeast);

} // namespace Fitting

#endif
