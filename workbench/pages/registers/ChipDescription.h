#ifndef CHIPDESCRIPTION_H
#define CHIPDESCRIPTION_H

#include "RegisterSet.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <memory>
#include <vector>

class QJsonObject;
class ValueTransformer;

/// The lowest `width` bits, 0..64.
constexpr quint64 maskOf(int width) { return width > 63 ? ~quint64(0) : (quint64(1) << width) - 1; }

/// The registers of a chip with their bit fields, as a JSON text tells them. The form of the text
/// stands in docs/chip-description.md. Owns all of its registers.
class ChipDescription
{
public:
    /// Why a text was refused.
    struct Problem {
        int line = 0; ///< From 1.
        QString reason;
    };

    /// \return null when the text is refused; `problem` then says why
    static std::unique_ptr<ChipDescription> read(const QByteArray& json, Problem* problem);
    ~ChipDescription();

    QString chip() const { return m_chip; }
    /// In the order of the text. The offset of each is its address.
    const std::vector<std::unique_ptr<RegisterSet>>& registers() const { return m_registers; }
    /// Of a field, as text; often empty.
    QString unit(const Register* field) const { return m_units.value(field); }

private:
    class Reader;
    ChipDescription();

    QString m_chip;
    std::vector<std::unique_ptr<ValueTransformer>> m_transformers; // outlive the fields
    std::vector<std::unique_ptr<Register>> m_fields;
    std::vector<std::unique_ptr<RegisterSet>> m_registers;
    QHash<const Register*, QString> m_units;
};

#endif
