#include "Csv_p.h"

#include <QDateTime>
#include <QFile>
#include <QSaveFile>

namespace
{

/// Takes back what was written of a line that did not fit.
bool writeWhole(QFile* file, const QByteArray& line)
{
    const qint64 before = file->pos();
    if (file->write(line) == line.size())
        return true;
    file->resize(before);
    return false;
}

} // namespace

void CsvLine::separate()
{
    if (!m_isEmpty)
        m_bytes += ';';
    m_isEmpty = false;
}

CsvLine& CsvLine::add(const QString& text)
{
    separate();
    m_bytes += text.toUtf8();
    return *this;
}

CsvLine& CsvLine::add(qint64 number)
{
    separate();
    m_bytes += QByteArray::number(number);
    return *this;
}

CsvLine& CsvLine::add(double number)
{
    separate();
    m_bytes += QByteArray::number(number, 'g', 6);
    return *this;
}

CsvLine& CsvLine::skip(int fields)
{
    for (int i = 0; i < fields; ++i)
        separate();
    return *this;
}

QString Csv::proposedName(const QDateTime& time, const QStringList& labels)
{
    QString name = time.toString(QStringLiteral("./yyyyMMdd_hh.mm.ss"));
    for (QString label : labels)
        name += QLatin1Char('_') + label.replace(QLatin1Char('/'), QLatin1Char('_'))
                                       .replace(QLatin1Char('\\'), QLatin1Char('_'));
    return name + QStringLiteral(".csv");
}

bool Csv::save(const QString& fileName, const QByteArray& lines)
{
    if (fileName.isEmpty())
        return false;
    QSaveFile file(fileName);
    file.setDirectWriteFallback(true); // a folder that allows no other file
    return file.open(QIODevice::WriteOnly) && file.write(lines) == lines.size() && file.commit();
}

QVector<QStringList> Csv::read(const QString& fileName)
{
    QVector<QStringList> rows;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return rows;
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    lines.removeLast(); // without its end
    for (const QString& line : qAsConst(lines))
        rows << line.split(QLatin1Char(';'));
    return rows;
}

bool CsvLog::start(const CsvLine& header) const
{
    QFile file(m_fileName);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered) &&
           writeWhole(&file, header.bytes());
}

bool CsvLog::append(const CsvLine& line) const
{
    QFile file(m_fileName);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Text | QIODevice::Unbuffered))
        return false;
    return (file.isSequential() || file.seek(file.size())) && writeWhole(&file, line.bytes());
}
