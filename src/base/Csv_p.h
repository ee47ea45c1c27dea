#ifndef CSV_P_H
#define CSV_P_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

class QDateTime;

/// One line of a text file whose fields are separated by ";". Numbers do not follow the locale, and
/// text is UTF-8.
class CsvLine
{
public:
    CsvLine& add(const QString& text);
    CsvLine& add(int number) { return add(qint64(number)); }
    CsvLine& add(qint64 number);
    /// Six significant digits, with an exponent where that is shorter.
    CsvLine& add(double number);
    /// Empty fields.
    CsvLine& skip(int fields);

    /// With the line's end.
    QByteArray bytes() const { return m_bytes + '\n'; }

private:
    void separate();

    QByteArray m_bytes;
    bool m_isEmpty = true; // no field yet
};

/// Whole files of such lines.
namespace Csv
{

/// What is proposed to the user: in the current folder, the time and each label behind a "_". No
/// label leads into another folder.
QString proposedName(const QDateTime& time, const QStringList& labels);

/// Writes the lines, each with its end; whole or not at all. False when it cannot be, as with an
/// empty name, which is a dialog's that was cancelled.
bool save(const QString& fileName, const QByteArray& lines);

/// The fields of each line that has its end; none when the file cannot be read.
QVector<QStringList> read(const QString& fileName);

} // namespace Csv

/// A text file that grows line by line, closed in between, so that others can read it. A line goes
/// out in one piece: whatever happens to the program, it is in the file whole or not at all.
class CsvLog
{
public:
    explicit CsvLog(QString fileName) : m_fileName(std::move(fileName)) {}

    /// Makes the file anew with its first line.
    bool start(const CsvLine& header) const;
    bool append(const CsvLine& line) const;

private:
    QString m_fileName;
};

#endif
