#include "host/exchange/SegyPositionsPage.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace hv {

namespace {

constexpr int g_mostReadings = 6;

QString shortNumber(double value)
{
    return QString::number(value, 'g', 3);
}

QString readingText(const segy::LineGuess& guess)
{
    return guess.inlineNumber.isSet() ? SegyPositionsPage::tr("%1 and %2")
                                            .arg(segy::textOf(guess.inlineNumber), segy::textOf(guess.crosslineNumber))
                                      : SegyPositionsPage::tr("%1 alone").arg(segy::textOf(guess.crosslineNumber));
}

} // namespace

QString fitInWords(const segy::Scan& scan)
{
    const auto tr = [](const char* text) { return SegyPositionsPage::tr(text); };
    if (!scan.survey)
        return tr("The volume will have no place on the map: it stands in its line numbers.");
    const segy::SurveyPlane& plane = *scan.survey;
    const auto apart = [](const segy::Point& step, const segy::LineRange& range) {
        return std::hypot(step.x, step.y) * static_cast<double>(range.step);
    };
    const double inlines = apart(plane.perInline, scan.inlines);
    const double crosslines = apart(plane.perCrossline, scan.crosslines);
    const double share = plane.rms / std::min(inlines, crosslines);
    const QString unit = scan.file->isInFeet() ? QStringLiteral("ft") : QStringLiteral("m");
    const QString grade = share < 0.01 ? tr("The coordinates lie on a regular grid.")
                          : share < 0.1
                              ? tr("The coordinates lie close to a regular grid.")
                              : tr("The coordinates follow a regular grid only roughly. Are the bytes right?");
    return tr("%1 Inlines are %2 %6 apart, crosslines %3 %6. The traces lie %4 %6 from their places in the root mean "
              "square, %5 %6 at most.")
        .arg(grade, shortNumber(inlines), shortNumber(crosslines), shortNumber(plane.rms), shortNumber(plane.largest),
             unit);
}

SegyPositionsPage::SegyPositionsPage(QWidget* parent)
    : QWidget(parent), m_reason(new QLabel), m_readings(new QPushButton(tr("&Other Readings"))), m_fit(new QLabel)
{
    const QString labels[] = {tr("&Inline number:"), tr("C&rossline number:"), tr("&X:"), tr("&Y:"),
                              tr("Sca&lar of X and Y:")};
    auto* form = new QFormLayout;
    int number = 0;
    for (Row& row : m_rows) {
        row.field = new QLineEdit;
        row.field->setMaximumWidth(row.field->fontMetrics().averageCharWidth() * 26);
        row.field->setToolTip(tr("The first byte, counted from 1; 189:2 for a number of two bytes, 0 for none"));
        row.meaning = new QLabel;
        row.meaning->setTextInteractionFlags(Qt::TextSelectableByMouse);
        auto* line = new QHBoxLayout;
        line->addWidget(row.field);
        line->addWidget(row.meaning, 1);
        auto* label = new QLabel(labels[number++]);
        label->setBuddy(row.field);
        form->addRow(label, line);
        connect(row.field, &QLineEdit::textEdited, this, &SegyPositionsPage::edited);
    }
    m_reason->setWordWrap(true);
    m_fit->setWordWrap(true);
    m_readings->setMenu(new QMenu(m_readings));
    m_readings->menu()->setToolTipsVisible(true);
    m_readings->setEnabled(false);
    auto* readings = new QHBoxLayout;
    readings->addWidget(m_readings);
    readings->addStretch();
    auto* intro = new QLabel(tr("Bytes of the trace header. An empty field takes what was found."));
    intro->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addLayout(form);
    layout->addWidget(m_reason);
    layout->addLayout(readings);
    layout->addSpacing(8);
    layout->addWidget(m_fit);
    layout->addStretch();
}

void SegyPositionsPage::setPreview(const SegyPreview& preview)
{
    m_preview = preview;
    showReadings(preview.guess);
    segy::ScanChoice choice;
    choose(choice);
    segy::Positions positions = preview.guess.positions;
    for (const PositionRole& role : positionRoles())
        positions.*role.found = (choice.positions.*role.chosen).value_or(positions.*role.found);
    showFound(positions);
    m_reason->clear();
    m_fit->clear();
}

void SegyPositionsPage::setScan(const segy::Scan& scan)
{
    showFound(scan.positions);
    QStringList reasons;
    if (!scan.guess.lines.empty())
        reasons << tr("Line numbers: %1.").arg(scan.guess.lines.front().reason);
    if (scan.positions.x.isSet() && !scan.guess.coordinateReason.isEmpty())
        reasons << tr("Coordinates: %1.").arg(scan.guess.coordinateReason);
    m_reason->setText(reasons.join(QLatin1Char('\n')));
    m_fit->setText(scan.remarks.obstacle().isEmpty() ? fitInWords(scan) : QString());
}

void SegyPositionsPage::showFound(const segy::Positions& positions)
{
    std::size_t number = 0;
    for (const PositionRole& role : positionRoles()) {
        const segy::Position position = positions.*role.found;
        Row& row = m_rows[number++];
        row.field->setPlaceholderText(position.isSet() ? tr("%1 (found)").arg(segy::textOf(position))
                                                       : tr("none (found)"));
        if (!position.isSet() || m_preview.headers.isEmpty()) {
            row.meaning->clear();
            continue;
        }
        const QString name = segy::nameOfByte(position.byte);
        const auto* first = reinterpret_cast<const std::byte*>(m_preview.headers.constData());
        const QString value =
            tr("%1 in the first trace").arg(segy::valueAt(first, position, m_preview.file->layout().order));
        row.meaning->setText(name.isEmpty() ? value : tr("%1, %2").arg(name, value));
    }
}

void SegyPositionsPage::showReadings(const segy::PositionGuess& guess)
{
    QMenu* menu = m_readings->menu();
    menu->clear();
    for (const segy::LineGuess& reading : guess.lines) {
        if (reading.score < 0 || menu->actions().size() >= g_mostReadings)
            break;
        menu->addAction(tr("%1: %2").arg(readingText(reading), reading.reason), this, [this, reading] {
            field(0)->setText(segy::textOf(reading.inlineNumber));
            field(1)->setText(segy::textOf(reading.crosslineNumber));
            Q_EMIT edited();
        });
    }
    m_readings->setEnabled(!menu->isEmpty());
}

void SegyPositionsPage::setPosition(int role, segy::Position position)
{
    field(role)->setText(segy::textOf(position));
    Q_EMIT edited();
}

void SegyPositionsPage::choose(segy::ScanChoice& choice) const
{
    std::size_t number = 0;
    for (const PositionRole& role : positionRoles())
        choice.positions.*role.chosen = segy::positionFromText(m_rows[number++].field->text());
}

QString SegyPositionsPage::problem() const
{
    std::size_t number = 0;
    for (const PositionRole& role : positionRoles()) {
        const QString text = m_rows[number++].field->text().trimmed();
        if (!text.isEmpty() && !segy::positionFromText(text))
            return tr("%1: \"%2\" is no position in a trace header, which has the bytes 1 to 240.")
                .arg(nameOf(role), text);
    }
    return {};
}

} // namespace hv
