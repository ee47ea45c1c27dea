#include "GraphCaptionItem.h"

#include <QFontMetrics>
#include <QPainter>

QRectF GraphCaptionItem::boundingRect() const { return {0, 0, m_width, m_height}; }

void GraphCaptionItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const QFontMetrics metrics = painter->fontMetrics();
    int baseline = 0;
    for (const Caption& caption : m_captions) {
        baseline += metrics.height();
        painter->setPen(caption.pen);
        painter->drawStaticText(0, baseline - metrics.ascent(), caption.text);
    }
}

void GraphCaptionItem::addCaption(QString text, QColor color, QFont font)
{
    const QFontMetrics metrics(font);
    prepareGeometryChange();
    m_captions.push_back(
        {QStaticText(text), QPen(color, 0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)});
    m_captions.back().text.setTextFormat(Qt::PlainText);
    m_height = static_cast<double>(metrics.height()) * static_cast<double>(m_captions.size());
    m_width = qMax(m_width, static_cast<double>(metrics.horizontalAdvance(text)));
}

void GraphCaptionItem::clearCaptions()
{
    prepareGeometryChange();
    m_captions.clear();
    m_width = m_height = 0;
}
