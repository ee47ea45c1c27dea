#ifndef FUNCTIONPLOT_P_H
#define FUNCTIONPLOT_P_H

#include <QFont>
#include <QGraphicsScene>
#include <QList>
#include <QPen>

/// The value axis of a plot.
struct ValueAxis {
    /// The axis for values from `min` to `max`. isValid() is false when there is none.
    static ValueAxis around(double min, double max);

    bool isValid() const;

    double min = 0; // in units of the scale, as is max
    double max = 0;
    double scale = 1;
    int decimals = 2;
};

/// Draws the parts of a plot into a scene, and keeps account of the room that their texts need.
class FunctionPlot
{
public:
    /// \param gridPen of the grid
    FunctionPlot(QGraphicsScene& scene, const QFont& font, const QPen& gridPen);

    void drawSquaredPaper();
    void drawValueAxis(const ValueAxis& axis);
    void drawColumns();
    void drawCurve(const QList<double>& values, const ValueAxis& axis, const QPen& pen);
    void drawCaptions(const QString& top, const QString& left, const QString& bottom,
                      const QString& right, const QBrush& brush);
    /// Gives the scene its rectangle and draws the border round the plot with the pen, recoloured.
    /// \return the size of a view that shows everything
    QSize close(QPen pen);

private:
    double widthOf(const QString& text) const;
    QGraphicsSimpleTextItem* addText(const QString& text, QPointF position);
    void addTurnedText(const QString& text, QPointF position, const QBrush& brush);
    void addLabel(const QString& text, double y);
    QPen gridPen(const QColor& color) const;

    QGraphicsScene& m_scene;
    QFont m_font;
    QPen m_gridPen;
    double m_width;
    double m_height;
    double m_fontHeight;
    double m_labelWidth = 0;
    double m_footerHeight = 0;
    double m_rightWidth = 0; // beside the plot
};

#endif
