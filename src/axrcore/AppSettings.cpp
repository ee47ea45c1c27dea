#include "AppSettings.h"

#include "SharedConstants.h"

#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QHash>
#include <QPointer>
#include <QScreen>
#include <QWidget>

#include <vector>

namespace
{

QString nameOr(const QString& name, const QString& fallback)
{
    return name.isEmpty() ? fallback : name;
}

QString oneLevel(QString name) { return name.replace(QLatin1Char('/'), SlashReplacement); }

QString colorMapKey(const QString& name)
{
    return QStringLiteral("ColorMap/Maps/") + oneLevel(name);
}

QString bareKeyPart(const QObject* object)
{
    return oneLevel(
        nameOr(object->objectName(), QString::fromLatin1(object->metaObject()->className())));
}

/// Knows in which order the widgets that live were made. Of windows Qt keeps no order, and that of
/// siblings changes with their stacking.
class Births : public QObject
{
public:
    using QObject::QObject;

    quint64 of(const QObject* widget) const { return m_births.value(widget); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Create)
            m_births.insert(watched, ++m_last);
        else if (event->type() == QEvent::Destroy)
            m_births.remove(watched);
        return false;
    }

private:
    QHash<const QObject*, quint64> m_births;
    quint64 m_last = 0;
};

QPointer<Births> births;

void watchBirths()
{
    QCoreApplication* application = QCoreApplication::instance(); // also one without widgets
    births = new Births(application);
    application->installEventFilter(births);
}
Q_COREAPP_STARTUP_FUNCTION(watchBirths)

quint64 birthOf(const QObject* widget) { return births ? births->of(widget) : 0; }

/// The widget's name, or its class where it has none, with a number behind for all but the oldest
/// of the siblings that would have the same.
QString keyPart(const QWidget* widget)
{
    const QString bare = bareKeyPart(widget);
    int place = 1;
    const QObjectList siblings = widget->parent() ? widget->parent()->children() : QObjectList();
    for (const QObject* sibling : siblings)
        place += sibling->isWidgetType() && bareKeyPart(sibling) == bare &&
                 birthOf(sibling) < birthOf(widget);
    return place == 1 ? bare : QStringLiteral("%1#%2").arg(bare).arg(place);
}

/// The box with those of its ancestors that have names.
QString pathOf(const QComboBox* box)
{
    QStringList parts{keyPart(box)};
    for (const QWidget* w = box->parentWidget(); w; w = w->parentWidget()) {
        if (!w->objectName().isEmpty() && !w->objectName().startsWith(QLatin1String("qt_")))
            parts.prepend(keyPart(w));
    }
    return parts.join(QLatin1Char('/'));
}

/// From the outermost window inwards: boxes come in the order of what they are in.
std::vector<quint64> birthsTo(const QWidget* widget)
{
    std::vector<quint64> chain;
    for (; widget; widget = widget->parentWidget())
        chain.insert(chain.begin(), birthOf(widget));
    return chain;
}

QString comboBoxKey(QComboBox* box)
{
    static const char* const settled = "_axrSettingsKey";
    const QVariant kept = box->property(settled);
    if (kept.isValid())
        return kept.toString();

    // Nameless ancestors and equally named windows leave several boxes with one path.
    const QString path = pathOf(box);
    int place = 1;
    QStringList taken;
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget* widget : widgets) {
        const auto* other = qobject_cast<const QComboBox*>(widget);
        if (!other || other == box)
            continue;
        const QVariant key = other->property(settled);
        if (key.isValid())
            taken << key.toString();
        else if (pathOf(other) == path && birthsTo(other) < birthsTo(box))
            ++place;
    }
    const auto numbered = [&path](int n) {
        return QStringLiteral("ComboBoxes/") +
               (n == 1 ? path : QStringLiteral("#%1/%2").arg(n).arg(path));
    };
    while (taken.contains(numbered(place)))
        ++place;
    box->setProperty(settled, numbered(place));
    return numbered(place);
}

} // namespace

AppSettings::AppSettings()
    : QSettings(QSettings::defaultFormat(), QSettings::UserScope,
                nameOr(QCoreApplication::organizationName(), QStringLiteral("AXR")),
                nameOr(QCoreApplication::applicationName(), QStringLiteral("AXRGui")))
{
    setFallbacksEnabled(false);
}

void AppSettings::restorePos(QWidget* widget, const QString& key)
{
    const QVariant stored = value(key, QVariant());
    if (!widget || !stored.canConvert<QPoint>())
        return;
    const QPoint position = stored.toPoint();
    if (QGuiApplication::screenAt(position))
        widget->move(position);
}

void AppSettings::savePos(QWidget* widget, const QString& key)
{
    if (widget)
        setValue(key, widget->pos());
}

QMap<QString, QVariant> AppSettings::getColorCustomMap(const QString& name)
{
    return value(colorMapKey(name), QVariantMap()).toMap();
}

void AppSettings::saveColorCustomMap(const QMap<QString, QVariant>& map, const QString& name)
{
    setValue(colorMapKey(name), map);
}

void AppSettings::saveParaMapVariant(const QMap<QString, QMap<QString, QVariant>>& map,
                                     const QString& key)
{
    if (key.split(QLatin1Char('/'), Qt::SkipEmptyParts).isEmpty())
        return;
    if (!map.isEmpty()) {
        QVariantMap rows; // a map of maps would be a type of its own, which no store can write
        for (auto row = map.begin(); row != map.end(); ++row)
            rows.insert(row.key(), QVariant(row.value()));
        setValue(key, rows);
        return;
    }
    // remove() takes the keys below along; they belong to others, so they are put back.
    QVariantMap below;
    beginGroup(key);
    const QStringList keys = allKeys();
    for (const QString& child : keys)
        below.insert(child, value(child, QVariant()));
    endGroup();
    remove(key);
    beginGroup(key);
    for (auto child = below.begin(); child != below.end(); ++child)
        setValue(child.key(), child.value());
    endGroup();
}

QMap<QString, QMap<QString, QVariant>> AppSettings::getParaMapVariant(const QString& key)
{
    QMap<QString, QMap<QString, QVariant>> map;
    const QVariantMap rows = value(key, QVariantMap()).toMap();
    for (auto row = rows.begin(); row != rows.end(); ++row)
        map.insert(row.key(), row.value().toMap());
    return map;
}

void AppSettings::saveComboxCurrentText(QComboBox* box)
{
    if (box)
        setValue(comboBoxKey(box), box->currentText());
}

QString AppSettings::restoreComboBoxCurrentText(QComboBox* box)
{
    return box ? value(comboBoxKey(box), QString()).toString() : QString();
}
