#include "AddressByte_p.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace
{

/// The bytes of an address of so many, or nothing.
QVector<int> bytesOf(const QString& text, int count)
{
    QVector<int> bytes;
    const QStringList parts = text.trimmed().split(QLatin1Char('.'));
    for (const QString& part : parts) {
        bool isNumber = false;
        const uint byte = part.toUInt(&isNumber);
        if (!isNumber || byte > 255)
            return {};
        bytes << static_cast<int>(byte);
    }
    return bytes.size() == count ? bytes : QVector<int>();
}

} // namespace

void AddressByte::join(const QVector<AddressByte*>& fields)
{
    for (AddressByte* field : fields)
        field->m_fields = fields;
}

void AddressByte::keyPressEvent(QKeyEvent* event)
{
    if (event->text() == QLatin1String(".")) {
        if (AddressByte* next = neighbour(1))
            next->setFocus(Qt::TabFocusReason); // which selects what is there
    } else if (event->key() == Qt::Key_Backspace && lineEdit()->text().isEmpty() && neighbour(-1)) {
        neighbour(-1)->setFocus(Qt::OtherFocusReason);
        neighbour(-1)->lineEdit()->end(false);
    } else {
        QSpinBox::keyPressEvent(event);
    }
}

QValidator::State AddressByte::validate(QString& text, int& position) const
{
    if (!text.contains(QLatin1Char('.')))
        return QSpinBox::validate(text, position);
    const QClipboard* clipboard = QGuiApplication::clipboard();
    for (const QString& pasted :
         {clipboard->text(), clipboard->text(QClipboard::Selection), text}) {
        const QVector<int> bytes = bytesOf(pasted, m_fields.size());
        if (bytes.isEmpty() || !text.contains(pasted.trimmed()))
            continue;
        for (int i = 0; i < bytes.size(); ++i) {
            if (m_fields.at(i) == this)
                text = QString::number(bytes.at(i)); // becomes the value as if it were typed
            else
                m_fields.at(i)->setValue(bytes.at(i));
        }
        position = text.size();
        return QValidator::Acceptable;
    }
    return QValidator::Invalid;
}

AddressByte* AddressByte::neighbour(int distance) const
{
    return m_fields.value(m_fields.indexOf(const_cast<AddressByte*>(this)) + distance);
}
