#include "ChipDescription.h"

#include "FixedPointValueTransformer.h"
#include "JsonLines.h"
#include "ToSignedValueTransformer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <limits>

namespace
{

constexpr int RegisterBits = 64;
constexpr double LargestWhole = 9007199254740992.0; // up to which JSON numbers are exact

const QStringList accessNames = {QStringLiteral("READ"), QStringLiteral("WRITE"),
                                 QStringLiteral("READ_WRITE"), QStringLiteral("WRITE_X_READ_Y"),
                                 QStringLiteral("READ_CLEAR")};
constexpr int accessKinds[] = {1, 2, 3, 7, 15};
const QStringList typeNames = {QStringLiteral("unsigned"), QStringLiteral("signed"),
                               QStringLiteral("fixed"), QStringLiteral("signed fixed")};
enum Type { Unsigned, Signed, Fixed, SignedFixed };

} // namespace

/// Reads the text, and keeps the first complaint.
class ChipDescription::Reader
{
public:
    Reader(const QByteArray& json, Problem* problem) : m_lines(json), m_problem(problem) {}

    void read(const QJsonObject& root, ChipDescription* chip);

private:
    void readRegister(const QJsonObject& object, const QString& path);
    void readField(const QJsonObject& object, const QString& path, RegisterSet* set);
    std::unique_ptr<ValueTransformer> transformer(const QJsonObject& object, const QString& path);
    void setLimits(const QJsonObject& object, const QString& path, int width, Register* field);

    void complain(const QString& path, const QString& reason);
    bool isFine() const { return m_problem->reason.isEmpty(); }
    void checkKeys(const QJsonObject& object, const QString& path, const QStringList& known);
    QJsonArray array(const QJsonObject& object, const QString& path, const QString& key);
    QJsonObject element(const QJsonArray& array, int index, const QString& path);
    QString text(const QJsonObject& object, const QString& path, const QString& key,
                 bool isNeeded = false);
    int choice(const QJsonObject& object, const QString& path, const QString& key,
               const QStringList& choices, const QString& otherwise = QString());
    int whole(const QJsonObject& object, const QString& path, const QString& key, int minimum,
              int maximum);
    double number(const QJsonObject& object, const QString& path, const QString& key,
                  double otherwise);
    quint64 raw(const QJsonValue& value, const QString& path, quint64 maximum);

    JsonLines m_lines;
    Problem* m_problem;
    ChipDescription* m_chip = nullptr;
};

ChipDescription::ChipDescription() = default;
ChipDescription::~ChipDescription() = default;

std::unique_ptr<ChipDescription> ChipDescription::read(const QByteArray& json, Problem* problem)
{
    *problem = Problem();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        *problem = {JsonLines::lineOf(json, error.offset), error.errorString()};
        return nullptr;
    }
    std::unique_ptr<ChipDescription> chip(new ChipDescription);
    Reader(json, problem).read(document.object(), chip.get());
    if (!problem->reason.isEmpty())
        return nullptr;
    return chip;
}

void ChipDescription::Reader::read(const QJsonObject& root, ChipDescription* chip)
{
    m_chip = chip;
    const QString top;
    checkKeys(root, top, {QStringLiteral("chip"), QStringLiteral("registers")});
    chip->m_chip = text(root, top, QStringLiteral("chip"), true);
    const QString path = QStringLiteral("/registers");
    const QJsonArray registers = array(root, top, QStringLiteral("registers"));
    for (int i = 0; i < registers.size() && isFine(); ++i)
        readRegister(element(registers, i, path), path + QLatin1Char('/') + QString::number(i));
}

void ChipDescription::Reader::readRegister(const QJsonObject& object, const QString& path)
{
    checkKeys(object, path,
              {QStringLiteral("title"), QStringLiteral("address"), QStringLiteral("description"),
               QStringLiteral("fields")});
    const QString title = text(object, path, QStringLiteral("title"), true);
    const QString addressKey = QStringLiteral("address");
    const quint64 address = raw(object.value(addressKey), path + QStringLiteral("/address"),
                                std::numeric_limits<quint8>::max());
    for (const auto& other : m_chip->m_registers) {
        if (other->getTitle() == title)
            complain(path + QStringLiteral("/title"),
                     QObject::tr("there are two registers \"%1\"").arg(title));
        if (other->getOffset() == address)
            complain(path + QStringLiteral("/address"),
                     QObject::tr("\"%1\" has this address too").arg(other->getTitle()));
    }
    auto set = std::make_unique<RegisterSet>(title, static_cast<quint8>(address));
    set->setDescription(text(object, path, QStringLiteral("description")));
    const QString fieldsPath = path + QStringLiteral("/fields");
    const QJsonArray fields = array(object, path, QStringLiteral("fields"));
    for (int i = 0; i < fields.size() && isFine(); ++i)
        readField(element(fields, i, fieldsPath),
                  fieldsPath + QLatin1Char('/') + QString::number(i), set.get());
    m_chip->m_registers.push_back(std::move(set));
}

void ChipDescription::Reader::readField(const QJsonObject& object, const QString& path,
                                        RegisterSet* set)
{
    checkKeys(object, path,
              {QStringLiteral("title"), QStringLiteral("bit"), QStringLiteral("width"),
               QStringLiteral("access"), QStringLiteral("reset"), QStringLiteral("description"),
               QStringLiteral("unit"), QStringLiteral("type"), QStringLiteral("fraction"),
               QStringLiteral("min"), QStringLiteral("max"), QStringLiteral("step"),
               QStringLiteral("restricted")});
    const QString title = text(object, path, QStringLiteral("title"), true);
    const int bit = whole(object, path, QStringLiteral("bit"), 0, RegisterBits - 1);
    const int width = whole(object, path, QStringLiteral("width"), 1, RegisterBits - bit);
    const int access = choice(object, path, QStringLiteral("access"), accessNames);
    const QString resetPath = path + QStringLiteral("/reset");
    const quint64 reset = object.contains(QStringLiteral("reset")) && isFine()
                              ? raw(object.value(QStringLiteral("reset")), resetPath, maskOf(width))
                              : 0;
    if (!isFine())
        return;
    if (set->getFraction(title))
        complain(path + QStringLiteral("/title"),
                 QObject::tr("there are two fields \"%1\"").arg(title));
    const QList<Register*> others = set->getFractions();
    for (const Register* other : others) {
        if (bit < other->getOffset() + other->getWidth() && other->getOffset() < bit + width)
            complain(
                path,
                QObject::tr("\"%1\" and \"%2\" have bits in common").arg(title, other->getTitle()));
    }
    auto field = std::make_unique<Register>(title, static_cast<quint8>(bit),
                                            static_cast<quint8>(width), accessKinds[access], reset);
    field->setDescription(text(object, path, QStringLiteral("description")));
    m_chip->m_units.insert(field.get(), text(object, path, QStringLiteral("unit")));
    m_chip->m_transformers.push_back(transformer(object, path));
    field->setValueTransformer(m_chip->m_transformers.back().get());
    setLimits(object, path, width, field.get());
    set->addFraction(field.get());
    m_chip->m_fields.push_back(std::move(field));
}

std::unique_ptr<ValueTransformer> ChipDescription::Reader::transformer(const QJsonObject& object,
                                                                       const QString& path)
{
    const int type = choice(object, path, QStringLiteral("type"), typeNames, typeNames.first());
    const bool isFixed = type == Fixed || type == SignedFixed;
    if (!isFixed && object.contains(QStringLiteral("fraction")))
        complain(path + QStringLiteral("/fraction"),
                 QObject::tr("only a fixed type has a fraction"));
    if (isFixed)
        return std::make_unique<FixedPointValueTransformer>(
            static_cast<quint8>(
                whole(object, path, QStringLiteral("fraction"), 0, RegisterBits - 1)),
            type == SignedFixed);
    if (type == Signed)
        return std::make_unique<ToSignedValueTransformer>();
    return nullptr;
}

void ChipDescription::Reader::setLimits(const QJsonObject& object, const QString& path, int width,
                                        Register* field)
{
    const double minimum = number(object, path, QStringLiteral("min"), field->getMin());
    const double maximum = number(object, path, QStringLiteral("max"), field->getMax());
    const double step = number(object, path, QStringLiteral("step"), field->getTick());
    if (minimum > maximum)
        complain(path + QStringLiteral("/min"), QObject::tr("\"min\" is above \"max\""));
    if (step <= 0)
        complain(path + QStringLiteral("/step"), QObject::tr("\"step\" must be above 0"));
    field->setRange(minimum, step, maximum);
    const QString key = QStringLiteral("restricted");
    if (!object.contains(key))
        return;
    const QJsonArray restricted = array(object, path, key);
    for (int i = 0; i < restricted.size(); ++i)
        field->addRestrictedValue(
            raw(restricted.at(i), path + QStringLiteral("/restricted/%1").arg(i), maskOf(width)));
}

void ChipDescription::Reader::complain(const QString& path, const QString& reason)
{
    if (isFine())
        *m_problem = {m_lines.line(path), reason};
}

void ChipDescription::Reader::checkKeys(const QJsonObject& object, const QString& path,
                                        const QStringList& known)
{
    for (auto member = object.begin(); member != object.end(); ++member) {
        if (!known.contains(member.key()))
            complain(path + QLatin1Char('/') + member.key(),
                     QObject::tr("there is nothing called \"%1\" here").arg(member.key()));
    }
}

QJsonArray ChipDescription::Reader::array(const QJsonObject& object, const QString& path,
                                          const QString& key)
{
    if (!object.value(key).isArray())
        complain(path + QLatin1Char('/') + key, QObject::tr("\"%1\" must be a list").arg(key));
    return object.value(key).toArray();
}

QJsonObject ChipDescription::Reader::element(const QJsonArray& array, int index,
                                             const QString& path)
{
    if (!array.at(index).isObject())
        complain(path + QLatin1Char('/') + QString::number(index),
                 QObject::tr("this must be an object in braces"));
    return array.at(index).toObject();
}

QString ChipDescription::Reader::text(const QJsonObject& object, const QString& path,
                                      const QString& key, bool isNeeded)
{
    const QJsonValue value = object.value(key);
    if ((isNeeded && value.toString().isEmpty()) || !(value.isString() || value.isUndefined()))
        complain(path + QLatin1Char('/') + key, QObject::tr("\"%1\" must be a text").arg(key));
    return value.toString();
}

int ChipDescription::Reader::choice(const QJsonObject& object, const QString& path,
                                    const QString& key, const QStringList& choices,
                                    const QString& otherwise)
{
    const int chosen = choices.indexOf(object.value(key).toString(otherwise));
    if (chosen < 0 || (object.contains(key) && !object.value(key).isString()))
        complain(
            path + QLatin1Char('/') + key,
            QObject::tr("\"%1\" must be one of %2").arg(key, choices.join(QStringLiteral(", "))));
    return qMax(0, chosen);
}

int ChipDescription::Reader::whole(const QJsonObject& object, const QString& path,
                                   const QString& key, int minimum, int maximum)
{
    const double value = object.value(key).toDouble(minimum - 1);
    if (value < minimum || value > maximum || value != std::floor(value)) {
        complain(path + QLatin1Char('/') + key,
                 QObject::tr("\"%1\" must be a whole number from %2 to %3")
                     .arg(key)
                     .arg(minimum)
                     .arg(maximum));
        return minimum;
    }
    return static_cast<int>(value);
}

double ChipDescription::Reader::number(const QJsonObject& object, const QString& path,
                                       const QString& key, double otherwise)
{
    if (object.contains(key) && !object.value(key).isDouble())
        complain(path + QLatin1Char('/') + key, QObject::tr("\"%1\" must be a number").arg(key));
    return object.value(key).toDouble(otherwise);
}

/// A raw value: a number, or a text "0x..." for those beyond 2^53.
quint64 ChipDescription::Reader::raw(const QJsonValue& value, const QString& path, quint64 maximum)
{
    const QString hex = value.toString();
    bool ok = false;
    quint64 result = 0;
    if (value.isDouble()) {
        const double whole = value.toDouble();
        ok = whole >= 0 && whole <= LargestWhole && whole == std::floor(whole);
        result = ok ? static_cast<quint64>(whole) : 0;
    } else if (hex.startsWith(QLatin1String("0x"))) {
        result = hex.midRef(2).toULongLong(&ok, 16);
    }
    if (!ok || result > maximum)
        complain(path, QObject::tr("this must be a raw value up to 0x%1").arg(maximum, 0, 16));
    return result;
}
