#include "host/formats/ColorBarFile.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>

namespace display {

namespace {

enum class Model
{
    Rgb,
    Hsv,
    Cmyk,
    Gray,
};

/// A colour as the file gives it. HSV components are kept, because a hue of 360 and one of 0 differ for interpolation.
struct TableColor
{
    QRgb rgb = 0;
    std::optional<std::array<double, 3>> hsv;
};

struct Slice
{
    int line;
    double low;
    double high;
    TableColor lowColor;
    TableColor highColor;
};

/// Thrown inside this file only; the reader turns it into the error text.
struct TableError
{
    QString reason;
};

int componentsOf(Model model)
{
    return model == Model::Cmyk ? 4 : model == Model::Gray ? 1 : 3;
}

double component(const QString& text, double largest)
{
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    if (!isNumber || !(value >= 0 && value <= largest))
        throw TableError{QStringLiteral("\"%1\" is not a colour component of 0 to %2").arg(text).arg(largest)};
    return value;
}

TableColor colorOfComponents(const QStringList& words, Model model)
{
    const auto byte = [&](int i) { return static_cast<int>(std::lround(component(words[i], 255))); };
    switch (model) {
    case Model::Gray:
        return {qRgb(byte(0), byte(0), byte(0)), {}};
    case Model::Hsv: {
        const std::array hsv{component(words[0], 360), component(words[1], 1), component(words[2], 1)};
        return {fromHsv(hsv[0], hsv[1], hsv[2]), hsv};
    }
    case Model::Cmyk: {
        const double light = 1 - component(words[3], 100) / 100;
        const auto ink = [&](int i) {
            return static_cast<int>(std::lround(255 * (1 - component(words[i], 100) / 100) * light));
        };
        return {qRgb(ink(0), ink(1), ink(2)), {}};
    }
    case Model::Rgb:
        break;
    }
    return {qRgb(byte(0), byte(1), byte(2)), {}};
}

TableColor namedColor(const QString& name)
{
    static const QRegularExpression gray(QStringLiteral("^gr[ae]y(\\d{1,3})$"),
                                         QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch percent = gray.match(name);
    if (percent.hasMatch()) {
        const int level = static_cast<int>(std::lround(component(percent.captured(1), 100) * 2.55));
        return {qRgb(level, level, level), {}};
    }
    if (!QColor::isValidColor(name))
        throw TableError{QStringLiteral("unknown colour \"%1\"").arg(name)};
    return {QColor(name).rgba(), {}};
}

/// One word: r/g/b, c/m/y/k, h-s-v, a grey level, a name, #RRGGBB or "-" (nothing is drawn), each with an optional
/// transparency in percent after "@".
TableColor colorOfWord(const QString& word, Model model)
{
    const int at = word.indexOf(QLatin1Char('@'));
    const QString text = word.left(at);
    static const QRegularExpression hsv(QStringLiteral("^[\\d.]+-[\\d.]+-[\\d.]+$"));
    const QStringList parts = text.split(QLatin1Char('/'));
    TableColor color;
    if (text == QLatin1String("-"))
        color.rgb = qRgba(0, 0, 0, 0);
    else if (parts.size() == 4)
        color = colorOfComponents(parts, Model::Cmyk);
    else if (parts.size() == 3)
        color = colorOfComponents(parts, model == Model::Hsv ? Model::Hsv : Model::Rgb);
    else if (hsv.match(text).hasMatch())
        color = colorOfComponents(text.split(QLatin1Char('-')), Model::Hsv);
    else if (!text.isEmpty() && (text[0].isDigit() || text[0] == QLatin1Char('.')))
        color = colorOfComponents({text}, Model::Gray);
    else
        color = namedColor(text);
    if (at >= 0) {
        const int alpha = static_cast<int>(std::lround(255 - component(word.mid(at + 1), 100) * 2.55));
        color.rgb = (color.rgb & RGB_MASK) | static_cast<QRgb>(alpha) << 24;
    }
    return color;
}

class TableReader
{
public:
    ColorBar read(const QByteArray& text)
    {
        const QStringList lines = QString::fromUtf8(text).split(QLatin1Char('\n'));
        for (const QString& line : lines) {
            ++m_line;
            readLine(line.trimmed());
        }
        // From here on an error concerns the whole file.
        m_line = 0;
        if (m_slices.isEmpty() && m_categories.isEmpty())
            throw TableError{QStringLiteral("it holds no colours")};
        if (!m_categories.isEmpty())
            fillBands();
        else
            fillSlices();
        // The colours of the ends are what a bar shows there anyway.
        if (m_bar.belowColor() == m_bar.colors().front())
            m_bar.setBelowColor({});
        if (m_bar.aboveColor() == m_bar.colors().back())
            m_bar.setAboveColor({});
        return m_bar;
    }

    int line() const { return m_line; }

private:
    void readLine(const QString& line)
    {
        if (line.startsWith(QLatin1Char('#')))
            return readComment(line);
        QStringList words =
            line.section(QLatin1Char(';'), 0, 0).split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
        if (words.isEmpty())
            return;
        refusePatterns(words);
        const QString first = words.first();
        if (first == QLatin1String("B"))
            m_bar.setBelowColor(wholeColor(words.mid(1)).rgb);
        else if (first == QLatin1String("F"))
            m_bar.setAboveColor(wholeColor(words.mid(1)).rgb);
        else if (first == QLatin1String("N"))
            m_bar.setNoValueColor(wholeColor(words.mid(1)).rgb);
        else
            readColors(words);
    }

    /// A number after "p" or "P", with resolution and colours behind it. The first word is a value, a key or a letter.
    static void refusePatterns(const QStringList& words)
    {
        static const QRegularExpression pattern(QStringLiteral("^[pP]\\d+([/+:]|$)"));
        for (int i = 1; i < words.size(); ++i)
            if (pattern.match(words[i]).hasMatch())
                throw TableError{QStringLiteral("\"%1\" is a pattern, a colour bar has colours only").arg(words[i])};
    }

    /// Directives are comments of the form "# KEY = value" or "# KEY" alone.
    void readComment(const QString& line)
    {
        static const QRegularExpression directive(QStringLiteral("^#\\s*([A-Z_]+)\\s*(?:=\\s*(.*))?$"));
        const QRegularExpressionMatch match = directive.match(line);
        const QString key = match.captured(1);
        const QString value = match.captured(2).trimmed();
        if (key == QLatin1String("COLOR_MODEL"))
            readModel(value.toUpper());
        else if (key == QLatin1String("RANGE"))
            readRange(value.split(QLatin1Char('/')));
        else if (key == QLatin1String("HARD_HINGE") || key == QLatin1String("SOFT_HINGE") ||
                 key == QLatin1String("HINGE"))
            m_hinge = value.isEmpty() ? 0 : number(value);
    }

    void readModel(QString name)
    {
        m_isMixedInHsv = name.startsWith(QLatin1String("+HSV"));
        name.remove(QLatin1Char('+'));
        if (name.startsWith(QLatin1String("HSV")))
            m_model = Model::Hsv;
        else if (name.startsWith(QLatin1String("CMYK")))
            m_model = Model::Cmyk;
        else if (name.startsWith(QLatin1String("GRAY")) || name.startsWith(QLatin1String("GREY")))
            m_model = Model::Gray;
        else if (name.startsWith(QLatin1String("RGB")))
            m_model = Model::Rgb;
        else
            throw TableError{QStringLiteral("unknown COLOR_MODEL \"%1\"").arg(name)};
    }

    void readRange(const QStringList& ends)
    {
        if (ends.size() != 2)
            throw TableError{QStringLiteral("RANGE needs two numbers with \"/\" between them")};
        m_range = {number(ends[0]), number(ends[1])};
    }

    static double number(const QString& text)
    {
        bool isNumber = false;
        const double value = text.toDouble(&isNumber);
        if (!isNumber || !std::isfinite(value))
            throw TableError{QStringLiteral("\"%1\" is not a number").arg(text)};
        return value;
    }

    TableColor wholeColor(const QStringList& words) const
    {
        if (words.size() == 1)
            return colorOfWord(words.first(), m_model);
        if (words.size() == componentsOf(m_model))
            return colorOfComponents(words, m_model);
        throw TableError{QStringLiteral("a colour was expected after B, F or N")};
    }

    void readColors(QStringList words)
    {
        // Marks where a scale is annotated: lower end, upper end, both.
        static const QStringList annotations{QStringLiteral("L"), QStringLiteral("U"), QStringLiteral("B")};
        if (words.size() > 2 && annotations.contains(words.last()))
            words.removeLast();
        const int width = componentsOf(m_model);
        if (words.size() == 2) {
            m_categories.append(colorOfWord(words[1], m_model).rgb);
            m_keys.append(words[0]);
        } else if (words.size() == 4) {
            addSlice(words[0], colorOfWord(words[1], m_model), words[2], colorOfWord(words[3], m_model));
        } else if (words.size() == 2 * width + 2) {
            addSlice(words[0], colorOfComponents(words.mid(1, width), m_model), words[width + 1],
                     colorOfComponents(words.mid(width + 2), m_model));
        } else {
            throw TableError{QStringLiteral("a slice of two values with a colour each was expected")};
        }
        if (!m_categories.isEmpty() && !m_slices.isEmpty())
            throw TableError{QStringLiteral("categories and slices are mixed")};
    }

    void addSlice(const QString& low, const TableColor& lowColor, const QString& high, const TableColor& highColor)
    {
        const Slice slice{m_line, number(low), number(high), lowColor, highColor};
        if (slice.low == slice.high)
            throw TableError{QStringLiteral("the slice has no height")};
        if (m_slices.isEmpty())
            return m_slices.append(slice);
        const Slice& before = m_slices.last();
        if ((slice.high > slice.low) != (before.high > before.low))
            throw TableError{QStringLiteral("the values ascend in one slice and descend in another")};
        if (std::abs(slice.low - before.high) > 1e-6 * std::abs(slice.high - slice.low))
            throw TableError{QStringLiteral("the slice begins at %1, the one before ends at %2")
                                 .arg(numberText(slice.low), numberText(before.high))};
        m_slices.append(slice);
    }

    /// Categories are equal bands; those with equally spaced numbers lie in the middle of theirs.
    void fillBands()
    {
        if (!m_bar.setBands(m_categories))
            throw TableError{QStringLiteral("it holds more than %1 categories").arg(ColorBar::Count)};
        const int count = m_keys.size();
        bool isNumber = false;
        const double first = m_keys.first().toDouble(&isNumber);
        const double step = count > 1 ? (m_keys.last().toDouble(&isNumber) - first) / (count - 1) : 1;
        for (int i = 0; i < count && isNumber; ++i) {
            const double key = m_keys[i].toDouble(&isNumber);
            isNumber = isNumber && std::abs(key - (first + i * step)) < 1e-6 * std::abs(step);
        }
        if (!isNumber || !m_bar.setRange(first - step / 2, first + (count - 0.5) * step))
            m_bar.setRange(0, count);
    }

    void fillSlices()
    {
        if (m_slices.first().low > m_slices.first().high) {
            std::reverse(m_slices.begin(), m_slices.end());
            for (Slice& slice : m_slices) {
                std::swap(slice.low, slice.high);
                std::swap(slice.lowColor, slice.highColor);
            }
        }
        const double minimum = toData(m_slices.first().low);
        const double maximum = toData(m_slices.last().high);
        if (!m_bar.setRange(minimum, maximum))
            throw TableError{
                QStringLiteral("the range %1 to %2 can not be shown").arg(numberText(minimum), numberText(maximum))};
        QVector<ColorPoint> points;
        double low = 0;
        for (int i = 0; i < m_slices.size(); ++i) {
            const Slice& slice = m_slices[i];
            const double high = i == m_slices.size() - 1 ? 1 : (toData(slice.high) - minimum) / (maximum - minimum);
            addSlicePoints(points, slice, low, high);
            low = high;
        }
        m_bar.setPoints(points);
    }

    /// A slice that is mixed in HSV becomes many short ones in RGB.
    void addSlicePoints(QVector<ColorPoint>& points, const Slice& slice, double low, double high) const
    {
        const auto add = [&points](double position, QRgb color) {
            const ColorPoint point{position, color};
            if (points.isEmpty() || !(points.last() == point))
                points.append(point);
        };
        add(low, slice.lowColor.rgb);
        if (m_isMixedInHsv && slice.lowColor.hsv && slice.highColor.hsv) {
            // A multiple of 6, so that a whole turn of the hue passes the pure colours.
            constexpr int steps = 252;
            for (int i = 1; i < steps; ++i) {
                const double t = i / static_cast<double>(steps);
                std::array<double, 3> hsv;
                for (std::size_t c = 0; c < 3; ++c)
                    hsv[c] = (*slice.lowColor.hsv)[c] * (1 - t) + (*slice.highColor.hsv)[c] * t;
                add(low + (high - low) * t, fromHsv(hsv[0], hsv[1], hsv[2]));
            }
        }
        add(high, slice.highColor.rgb);
    }

    /// Tables with a RANGE may be normalised: 0 to 1, or -1 to 1 with the hinge at 0.
    double toData(double z) const
    {
        const double lowest = m_hinge ? -1 : 0;
        if (!m_range || m_slices.first().low < lowest || m_slices.last().high > 1)
            return z;
        const auto [low, high] = *m_range;
        if (!m_hinge)
            return low + z * (high - low);
        return *m_hinge + (z < 0 ? z * (*m_hinge - low) : z * (high - *m_hinge));
    }

    ColorBar m_bar;
    Model m_model = Model::Rgb;
    bool m_isMixedInHsv = false;
    std::optional<std::pair<double, double>> m_range;
    std::optional<double> m_hinge;
    QVector<Slice> m_slices;
    QVector<QRgb> m_categories;
    QStringList m_keys;
    /// 1-based; 0 when an error concerns the whole file.
    int m_line = 0;
};

QString colorText(QRgb color)
{
    if (color == 0)
        return QStringLiteral("-");
    QString text = QStringLiteral("%1/%2/%3").arg(qRed(color)).arg(qGreen(color)).arg(qBlue(color));
    if (qAlpha(color) < 255)
        text += QLatin1Char('@') + numberText(100 - qAlpha(color) / 2.55);
    return text;
}

} // namespace

hv::Result<ColorBar> readPaletteTable(const QByteArray& text)
{
    TableReader reader;
    try {
        return reader.read(text);
    } catch (const TableError& problem) {
        const int line = reader.line();
        return hv::Failure(line > 0 ? QStringLiteral("line %1: %2").arg(line).arg(problem.reason) : problem.reason, {},
                           line);
    }
}

QByteArray writePaletteTable(const ColorBar& bar)
{
    QString text = QStringLiteral("# COLOR_MODEL = RGB\n");
    const QVector<ColorPoint> points = storedPoints(bar);
    const auto value = [&](const ColorPoint& point) {
        return numberText(point.position == 1 ? bar.maximum()
                                              : bar.minimum() + point.position * (bar.maximum() - bar.minimum()));
    };
    for (int i = 1; i < points.size(); ++i) {
        const ColorPoint& low = points[i - 1];
        const ColorPoint& high = points[i];
        // Nothing lies between the two points of an edge.
        if (value(low) != value(high))
            text += QStringLiteral("%1\t%2\t%3\t%4\n")
                        .arg(value(low), colorText(low.color), value(high), colorText(high.color));
    }
    text += QStringLiteral("B\t%1\n").arg(colorText(bar.belowColor().value_or(bar.colors().front())));
    text += QStringLiteral("F\t%1\n").arg(colorText(bar.aboveColor().value_or(bar.colors().back())));
    text += QStringLiteral("N\t%1\n").arg(colorText(bar.noValueColor()));
    return text.toUtf8();
}

} // namespace display
