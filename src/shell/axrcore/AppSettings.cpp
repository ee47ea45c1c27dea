#include "AppSettings.h"

#include "SharedConstants.h"

#include <QApplication>
#include <QComboBox>
#include <QScreen>
#include <QWidget>

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

/// The widget's own part of a combo box key: its name, or its class where it has none, with a
/// number behind for all but the first of the siblings that would have the same part. Settled at
/// first use and kept at the widget, for the order of siblings changes with their stacking.
QString keyPart(QWidget* widget)
{
    static const char* const settled = "_axrSettingsKeyPart";
    const QVariant kept = widget->property(settled);
    if (kept.isValid())
        return kept.toString();

    const QString bare = bareKeyPart(widget);
    int place = 1;
    QStringList taken;
    bool before = true;
    const QObjectList siblings = widget->parent() ? widget->parent()->children() : QObjectList();
    for (const QObject* sibling : siblings) {
        before = before && sibling != widget;
        if (!sibling->isWidgetType() || sibling == widget || bareKeyPart(sibling) != bare)
            continue;
        const QVariant other = sibling->property(settled);
        if (other.isValid())
            taken << other.toString();
        else if (before)
            ++place;
    }
    const auto numbered = [&bare](int n) {
        return n == 1 ? bare : QStringLiteral("%1#%2").arg(bare).arg(n);
    };
    while (taken.contains(numbered(place)))
        ++place;
    widget->setProperty(settled, numbered(place));
    return numbered(place);
}

QString comboBoxKey(QComboBox* box)
{
    QStringList parts{keyPart(box)};
    for (QWidget* w = box->parentWidget(); w; w = w->parentWidget()) {
        if (!w->objectName().isEmpty() && !w->objectName().startsWith(QLatin1String("qt_")))
            parts.prepend(keyPart(w));
    }
    return QStringLiteral("ComboBoxes/") + parts.join(QLatin1Char('/'));
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
