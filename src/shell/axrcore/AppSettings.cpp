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

/// The object's own part of a combo box key: its name, or its class where it has none, and its
/// place among those siblings that would have the same part.
QString keyPart(const QObject* object)
{
    const auto bare = [](const QObject* o) {
        return nameOr(o->objectName(), QString::fromLatin1(o->metaObject()->className()));
    };
    QString part = bare(object);
    int twins = 0;
    int place = 0;
    const QObjectList siblings = object->parent() ? object->parent()->children() : QObjectList();
    for (const QObject* sibling : siblings) {
        if (bare(sibling) != part)
            continue;
        ++twins;
        if (sibling == object)
            place = twins;
    }
    if (twins > 1)
        part += QStringLiteral("#%1").arg(place);
    return oneLevel(part);
}

QString comboBoxKey(const QComboBox* box)
{
    QStringList parts{keyPart(box)};
    for (const QObject* o = box->parent(); o; o = o->parent()) {
        if (!o->objectName().isEmpty() && !o->objectName().startsWith(QLatin1String("qt_")))
            parts.prepend(keyPart(o));
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
    if (key.isEmpty())
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
