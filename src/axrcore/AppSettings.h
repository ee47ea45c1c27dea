#ifndef APPSETTINGS_H
#define APPSETTINGS_H

#include "AXRCoreExport.h"

#include <QMap>
#include <QSettings>
#include <QString>
#include <QVariant>

class QComboBox;
class QWidget;

/// The application's one settings store. Built on the stack for each access; all instances open
/// the same store. GUI thread only.
///
/// The store is QSettings' default format in user scope, under QCoreApplication's organisation
/// ("AXR" when empty) and application name ("AXRGui" when empty), both read at construction. A
/// host redirects it through the two names, QSettings::setDefaultFormat() or QSettings::setPath().
/// A format that stores text gives numbers and flags back as text: read with toInt(), toBool().
class AXRCORE_EXPORT AppSettings : public QSettings
{
    Q_OBJECT
public:
    AppSettings();

    /// Moves the widget to the stored point if it lies on a present screen; else leaves it.
    void restorePos(QWidget* widget, const QString& key);
    /// Stores the widget's pos() as a QPoint under exactly `key`, inside the current group.
    void savePos(QWidget* widget, const QString& key);

    /// The colour map stored under `name`, empty if none. Keys are made by Prefix::add().
    QMap<QString, QVariant> getColorCustomMap(const QString& name);
    /// Replaces the map stored under `name`, whole. Stored as one value under
    /// "ColorMap/Maps/<name>", with "/" in the name replaced so that it stays one level.
    void saveColorCustomMap(const QMap<QString, QVariant>& map, const QString& name);

    /// Replaces the value stored under `key` by the map; an empty map removes it. Keys below
    /// `key` are other settings and stay. An empty key is ignored.
    void saveParaMapVariant(const QMap<QString, QMap<QString, QVariant>>& map, const QString& key);
    /// What saveParaMapVariant() stored under `key`, empty if none. For the host.
    QMap<QString, QMap<QString, QVariant>> getParaMapVariant(const QString& key);

    /// Stores the box's current text under a key made of its object name and those of its named
    /// ancestors: an unnamed box counts by its class name, and all but the oldest of siblings with
    /// one name get a number behind. Where nameless ancestors or equally named windows still leave
    /// several boxes with one key, all but the first get a number in front, in the order in which
    /// windows, ancestors and boxes were made. So a host that makes its windows in one order finds
    /// each box's text again, and a window made anew after an earlier one is gone finds its texts.
    ///
    /// The key is settled when the box is first saved or restored, and is kept in its property
    /// "_axrSettingsKey": a later name, place or neighbour changes nothing.
    void saveComboxCurrentText(QComboBox* box);
    /// The text stored for this box, empty if none. Does not touch the box.
    QString restoreComboBoxCurrentText(QComboBox* box);
};

#endif
