#ifndef FITTING_H
#define FITTING_H

#include <QVector>

class QAbstractItemView;
class QGridLayout;
class QWidget;

/// What keeps a page readable at each font size.
namespace Fitting
{

/// The content in a scroll area that scrolls rather than squeezes it, so that no digit of a value
/// is ever cut off.
QWidget* scrolled(QWidget* content);

/// Keeps the columns of a table or tree as wide as their texts, and at least as wide as given (px).
/// The last one takes what is left. To be called when the view has its model.
void fitColumns(QAbstractItemView* view, const QVector<int>& atLeast = {});

/// Lays a row of captions over a row of fields out in two such pairs, one below the other, while
/// there is not enough room for one.
/// \param panel whose width counts
/// \param row part of its layout, of the two rows and of nothing else
/// \param half the first column of the second pair
void foldRow(QWidget* panel, QGridLayout* row, int half);

} // namespace Fitting

#endif
