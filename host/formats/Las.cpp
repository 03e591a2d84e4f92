#include "host/formats/Las.h"

#include <QList>

#include <cmath>
#include <limits>

namespace las {

namespace {

/// "MNEM.UNIT  value : description"; the unit follows the first point at once, the description the last colon.
Item itemOf(const QString& line)
{
    const int point = line.indexOf(QLatin1Char('.'));
    const int colon = line.lastIndexOf(QLatin1Char(':'));
    Item item;
    item.mnemonic = line.left(point < 0 ? colon : point).trimmed();
    QString middle = point < 0 ? QString() : line.mid(point + 1, colon < point ? -1 : colon - point - 1);
    int unitEnd = 0;
    while (unitEnd < middle.size() && !middle[unitEnd].isSpace())
        ++unitEnd;
    item.unit = middle.left(unitEnd);
    item.value = middle.mid(unitEnd).trimmed();
    item.description = colon < 0 ? QString() : line.mid(colon + 1).trimmed();
    return item;
}

QString valueOf(const std::vector<Item>& items, const char* mnemonic)
{
    for (const Item& item : items)
        if (item.mnemonic.compare(QLatin1String(mnemonic), Qt::CaseInsensitive) == 0)
            return item.value;
    return {};
}

class Reader
{
public:
    hv::Result<Log> read(const QByteArray& text)
    {
        int number = 0;
        for (const QByteArray& raw : text.split('\n')) {
            ++number;
            const QByteArray line = raw.trimmed();
            if (line.isEmpty() || line.startsWith('#'))
                continue;
            if (line.startsWith('~')) {
                if (m_section == 'A')
                    break;
                m_section = line.size() > 1 ? static_cast<char>(std::toupper(line[1])) : ' ';
                if (m_section == 'A' && m_log.curves.empty())
                    break;
                if (m_section == 'A')
                    beginSamples();
                continue;
            }
            if (m_section == '\0')
                return hv::Failure(QStringLiteral("line %1: it does not begin with a section").arg(number), {}, number);
            if (m_section != 'A')
                addItem(QString::fromUtf8(line));
            else if (!addSamples(line))
                return hv::Failure(QStringLiteral("line %1: '%2' is no number")
                                       .arg(QString::number(number), QString::fromUtf8(m_wrong)),
                                   {}, number);
        }
        if (m_section != 'A' || m_log.curves.empty())
            return hv::Failure(m_log.curves.empty() ? QStringLiteral("it names no curves")
                                                    : QStringLiteral("it has no samples"));
        if (m_next != 0)
            return hv::Failure(QStringLiteral("its last row of samples is not complete"));
        return std::move(m_log);
    }

private:
    void addItem(const QString& line)
    {
        switch (m_section) {
        case 'W':
            m_log.well.push_back(itemOf(line));
            break;
        case 'C':
            m_log.curves.push_back(itemOf(line));
            break;
        default: // parameters and remarks
            break;
        }
    }

    void beginSamples()
    {
        m_log.samples.resize(m_log.curves.size());
        bool isNumber = false;
        m_null = valueOf(m_log.well, "NULL").toDouble(&isNumber);
        if (!isNumber)
            m_null = std::numeric_limits<double>::quiet_NaN();
    }

    bool addSamples(const QByteArray& line)
    {
        for (const QByteArray& word : line.simplified().split(' ')) {
            bool isNumber = false;
            const double value = word.toDouble(&isNumber);
            if (!isNumber) {
                m_wrong = word;
                return false;
            }
            // Rows end where all curves have their sample: wrapped files break them anywhere.
            m_log.samples[m_next].push_back(value == m_null ? std::numeric_limits<double>::quiet_NaN() : value);
            m_next = (m_next + 1) % m_log.curves.size();
        }
        return true;
    }

    Log m_log;
    char m_section = '\0';
    double m_null = 0;
    std::size_t m_next = 0;
    QByteArray m_wrong;
};

} // namespace

QString Log::wellValue(const char* mnemonic) const
{
    return valueOf(well, mnemonic);
}

hv::Result<Log> read(const QByteArray& text)
{
    return Reader().read(text);
}

} // namespace las
