#include "app/headless/TerminalProgress.h"

#include "host/services/WriteAll.h"

#include <QStringList>

#include <cmath>
#include <sys/ioctl.h>
#include <unistd.h>
#include <wchar.h>

namespace headless {

namespace {

using namespace std::chrono_literals;

constexpr auto g_betweenTenths = 1s;
constexpr auto g_betweenLines = 10s;
constexpr double g_worthALine = 1; // seconds
constexpr int g_usualWidth = 80;
constexpr int g_longestBar = 30;
constexpr int g_shortestBar = 10;
/// Kept for the time left whether there is one or not, so that the bar keeps its length.
constexpr int g_timeLeftWidth = 24;

bool isCapableTerminal(int file)
{
    const QByteArray kind = qgetenv("TERM");
    return ::isatty(file) && !kind.isEmpty() && kind != "dumb";
}

int columnsOf(int file)
{
    winsize size{};
    return ::ioctl(file, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : g_usualWidth;
}

int widthOf(uint character)
{
    return std::max(0, wcwidth(static_cast<wchar_t>(character)));
}

int widthOf(const QString& text)
{
    int width = 0;
    for (const uint character : text.toUcs4())
        width += widthOf(character);
    return width;
}

/// At most `columns` wide, with dots for what is left out.
QString cut(const QString& text, int columns)
{
    if (widthOf(text) <= columns)
        return text;
    const QString dots = QStringLiteral("...").left(std::max(0, columns));
    QString kept;
    int width = widthOf(dots);
    for (const uint character : text.toUcs4()) {
        width += widthOf(character);
        if (width > columns)
            break;
        kept += QString::fromUcs4(&character, 1);
    }
    return kept + dots;
}

/// One line without characters that would do something to the terminal.
QString plainName(const HVProgressBarState& bar)
{
    QString name = bar.name.simplified();
    for (QChar& character : name)
        if (character.category() == QChar::Other_Control)
            character = QLatin1Char('?');
    return name.isEmpty() ? QStringLiteral("Working") : name;
}

QString percent(const HVProgressBarState& bar)
{
    // Not 100 before it is.
    return bar.fraction ? QStringLiteral(" %1 %").arg(std::floor(*bar.fraction * 100)) : QString();
}

/// The first tree of bars, from the outermost to the innermost: "Lines 10 % > Traces 55 %".
QString path(const std::vector<HVProgressBarState>& bars)
{
    QStringList parts;
    for (const HVProgressBarState& bar : bars)
        if (bar.depth == parts.size())
            parts << plainName(bar) + percent(bar);
    return parts.join(QStringLiteral(" > "));
}

QString timeLeft(const HVProgressBarState& bar)
{
    return bar.secondsLeft ? HVTimeLeft::text(*bar.secondsLeft) : QString();
}

QString graph(double fraction, int width)
{
    const int full = static_cast<int>(std::floor(fraction * width));
    return QStringLiteral("[%1%2]").arg(QString(full, QLatin1Char('#')), QString(width - full, QLatin1Char('.')));
}

QString ending(const HVProgressBarState& bar)
{
    const QString name = plainName(bar);
    const QString taken = bar.secondsTaken < 100 ? QStringLiteral("%1 s").arg(bar.secondsTaken, 0, 'f', 1)
                                                 : QStringLiteral("%1 min").arg(std::round(bar.secondsTaken / 60));
    if (bar.cancelled)
        return QStringLiteral("%1: cancelled after %2").arg(name, taken);
    if (bar.done < bar.steps)
        return QStringLiteral("%1: stopped at%2 after %3").arg(name, percent(bar), taken);
    return QStringLiteral("%1: done in %2").arg(name, taken);
}

} // namespace

TerminalProgress::TerminalProgress(int file) : m_file(file), m_isTerminal(isCapableTerminal(file)) {}

TerminalProgress::~TerminalProgress()
{
    erase();
}

void TerminalProgress::makeWay(std::string_view text)
{
    const std::lock_guard lock(m_mutex);
    erase();
    if (!text.empty())
        m_atLineStart = text.back() == '\n';
}

void TerminalProgress::progressChanged(const std::vector<HVProgressBarState>& bars)
{
    const std::lock_guard lock(m_mutex);
    m_bars = bars;
    show();
}

void TerminalProgress::jobsChanged(const std::vector<HVProgressBarState>& jobs)
{
    const std::lock_guard lock(m_mutex);
    m_jobs = jobs;
    if (m_bars.empty())
        show();
}

void TerminalProgress::show()
{
    const std::vector<HVProgressBarState>& bars = m_bars.empty() ? m_jobs : m_bars;
    if (bars.empty()) {
        erase();
        return;
    }
    if (m_isTerminal) {
        // Not behind a line that the script has only begun.
        if (m_atLineStart)
            draw(bars);
        return;
    }
    const HVProgressBarState& bar = bars.front();
    const int tenths = static_cast<int>(bar.fraction.value_or(0) * 10);
    const auto since = Clock::now() - m_lastLine;
    if (since < g_betweenTenths || (bar.id == m_lineBar && tenths == m_tenths && since < g_betweenLines))
        return;
    m_lineBar = bar.id;
    m_tenths = tenths;
    const QString left = timeLeft(bar);
    writeLine(left.isEmpty() ? path(bars) : path(bars) + QStringLiteral(", ") + left);
}

void TerminalProgress::progressClosed(const HVProgressBarState& bar)
{
    const std::lock_guard lock(m_mutex);
    const bool begun = !m_isTerminal && bar.id == m_lineBar;
    if (bar.depth > 0 || (bar.secondsTaken < g_worthALine && !begun))
        return;
    erase();
    if (m_atLineStart)
        writeLine(ending(bar));
}

void TerminalProgress::draw(const std::vector<HVProgressBarState>& bars)
{
    // A full last column makes some terminals begin a new line.
    const int columns = columnsOf(m_file) - 1;
    const QString left = timeLeft(bars.front());
    QString line = cut(path(bars), columns);
    const int room = columns - widthOf(line) - g_timeLeftWidth - 4;
    if (bars.front().fraction && room >= g_shortestBar)
        line += QStringLiteral("  ") + graph(*bars.front().fraction, std::min(room, g_longestBar));
    if (!left.isEmpty() && widthOf(line) + widthOf(left) + 2 <= columns)
        line += QStringLiteral("  ") + left;
    hv::writeAll(m_file, ("\r" + line.toLocal8Bit() + "\x1b[K").toStdString());
    m_drawn = true;
}

void TerminalProgress::erase()
{
    if (std::exchange(m_drawn, false))
        hv::writeAll(m_file, "\r\x1b[K");
}

void TerminalProgress::writeLine(const QString& line)
{
    m_lastLine = Clock::now();
    hv::writeAll(m_file, (line.toLocal8Bit() + '\n').toStdString());
}

} // namespace headless
