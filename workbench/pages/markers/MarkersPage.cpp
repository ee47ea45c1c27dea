#include "MarkersPage.h"

#include "FunctionData.h"
#include "MarkerItem.h"
#include "NoteItem.h"
#include "NoteTextItem.h"

#include <QFormLayout>
#include <QGraphicsRectItem>
#include <QGraphicsView>
#include <QLabel>
#include <QVBoxLayout>

namespace
{

constexpr double TopVelocity = 400;   // rpm; a round number, so that the value axis ends at it
constexpr double Acceleration = 1000; // rpm/s
constexpr double Turns = 480;         // rpm x s
constexpr int Samples = 200;
constexpr double PlotWidth = 1.8; // of 350 px
constexpr double Zoom = 1.25;
constexpr int CaptionRoom = 50; // px above and beside the plot, for the markers' captions
constexpr int BelowTheBorder = -2;
constexpr QPointF BadgeOffset(12, 30);

} // namespace

MarkersPage::MarkersPage()
    : m_ramp(Simulated::RampProfile::toPosition({0, 0}, Turns, TopVelocity, Acceleration))
    , m_data(new FunctionData(&m_scene, font(), PlotWidth, this))
    , m_timeText(new QLabel)
    , m_velocityText(new QLabel)
    , m_noteText(new QLabel(tr("none selected")))
{
    m_timeText->setObjectName(QStringLiteral("lblTime"));
    m_velocityText->setObjectName(QStringLiteral("lblVelocity"));
    m_noteText->setObjectName(QStringLiteral("lblNote"));
    plotRamp();
    addMarkers();
    const double stop = m_ramp.duration();
    const double rampTime = TopVelocity / Acceleration;
    addNote(0, QStringLiteral("a"), tr("The axis starts"));
    addNote(rampTime, QStringLiteral("b"), tr("Top velocity is reached"));
    addNote(stop - rampTime, QStringLiteral("c"), tr("The axis brakes"));
    addNote(stop, QStringLiteral("d"), tr("The target is reached"));

    auto* view = new QGraphicsView(&m_scene);
    view->setObjectName(QStringLiteral("gvMarkers"));
    view->setAccessibleName(tr("Move with markers and notes"));
    view->setRenderHint(QPainter::Antialiasing);
    view->setSceneRect(m_shown.adjusted(0, -CaptionRoom, CaptionRoom, 0));
    view->scale(Zoom, Zoom);
    auto* shown = new QFormLayout;
    shown->addRow(tr("Time:"), m_timeText);
    shown->addRow(tr("Velocity:"), m_velocityText);
    shown->addRow(tr("Note:"), m_noteText);
    auto* column = new QVBoxLayout(this);
    column->addWidget(new QLabel(tr("A move to a position. Drag the markers, click the notes.")));
    column->addWidget(view, 1);
    column->addLayout(shown);

    connect(m_time, &MarkerItem::mouseReleased, this, &MarkersPage::showTime);
    connect(m_velocity, &MarkerItem::mouseReleased, this, &MarkersPage::showVelocity);
    connect(&m_scene, &QGraphicsScene::selectionChanged, this, &MarkersPage::showNote);
    showTime();
    showVelocity();
}

MarkersPage::~MarkersPage()
{
    m_scene.disconnect(this); // a scene that goes drops its selection
}

void MarkersPage::plotRamp()
{
    const double duration = m_ramp.duration();
    for (int i = 0; i <= Samples; ++i)
        m_data->add(m_ramp.at(i * duration / Samples).velocity);
    m_data->setCaption(QString(), tr("Velocity [rpm]"), tr("%1 ms").arg(qRound(duration * 1000)),
                       QString());
    m_shown.setSize(m_data->fillGraph(0, QPen(QColor(QStringLiteral("royalblue")), 2)));
    m_shown.moveCenter(m_scene.sceneRect().center());
    m_data->setNorm(QSizeF(duration * 1000, TopVelocity));
    m_plot = m_scene.addRect(QRectF(QPointF(), m_data->getGrid()), QPen(Qt::NoPen));
    m_scene.setBackgroundBrush(QColor(QStringLiteral("whitesmoke"))); // as the plot's border
    m_scene.addRect(m_plot->rect(), QPen(Qt::NoPen), Qt::white)->setZValue(BelowTheBorder);
}

void MarkersPage::addMarkers()
{
    const auto pen = [](const QString& color) { return QPen(QColor(color), 2); };
    m_time = onPlot(
        m_data->addVerticalMarker(800, tr("Time"), pen(QStringLiteral("seagreen")), false, true),
        QStringLiteral("timeMarker"));
    m_velocity = onPlot(m_data->addHorizontalMarker(250, tr("Velocity\n"),
                                                    pen(QStringLiteral("darkorange")), false, true),
                        QStringLiteral("velocityMarker"));
}

MarkerItem* MarkersPage::onPlot(MarkerItem* marker, const QString& name)
{
    marker->setObjectName(name);
    marker->setParentItem(m_plot);
    marker->setCursor(Qt::SizeAllCursor);
    return marker;
}

/// Where the curve is at a time (s).
QPointF MarkersPage::placeOf(double time) const
{
    return QPointF(m_data->normToWidth(qRound(time * 1000)),
                   m_data->normToHeight(m_ramp.at(time).velocity));
}

void MarkersPage::addNote(double time, const QString& letter, const QString& name)
{
    const QPointF place = placeOf(time);
    auto* note = new NoteItem(name);
    note->setBrush(QColor(QStringLiteral("crimson")));
    note->setPos(place - note->rect().center());
    m_scene.addItem(note);
    auto* badge = new NoteTextItem(letter);
    badge->setBrush(QColor(QStringLiteral("crimson")));
    const double width = badge->boundingRect().width();
    const bool isLate = time > m_ramp.duration() / 2; // then to the left, within the ramp
    badge->setPos(place +
                  (isLate ? QPointF(-BadgeOffset.x() - width, BadgeOffset.y()) : BadgeOffset));
    m_scene.addItem(badge);
}

void MarkersPage::showTime()
{
    const double time = m_time->x() / m_data->normToWidth(1);
    m_timeText->setText(tr("%1 ms, where the axis turns at %2 rpm")
                            .arg(time, 0, 'f', 0)
                            .arg(m_ramp.at(time / 1000).velocity, 0, 'f', 0));
}

void MarkersPage::showVelocity()
{
    const double height = m_data->getGrid().height();
    const double velocity = (1 - m_velocity->y() / height) * TopVelocity;
    m_velocityText->setText(tr("%1 rpm").arg(velocity, 0, 'f', 0));
    m_velocity->setValue(qRound(velocity), QPointF());
}

void MarkersPage::showNote()
{
    const QList<QGraphicsItem*> selected = m_scene.selectedItems();
    const auto* note = selected.isEmpty() ? nullptr : dynamic_cast<NoteItem*>(selected.first());
    m_noteText->setText(note ? note->name() : tr("none selected"));
}
