#include "host/widgets/HVProgressWindow.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace {

constexpr std::size_t g_mostRows = 6;
constexpr int g_widthInCharacters = 64;
/// Fine enough for a bar across a large screen; steps themselves may not fit into its range.
constexpr int g_resolution = 1000;

void keepRoom(QWidget* widget)
{
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

} // namespace

HVProgressWindow::HVProgressWindow(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      m_layout(new QGridLayout), m_more(new QLabel)
{
    setWindowTitle(tr("Progress"));
    // Whatever the user is typing goes on to where it was going.
    setAttribute(Qt::WA_ShowWithoutActivating);
    setMinimumWidth(g_widthInCharacters * fontMetrics().averageCharWidth());
    auto* layout = new QVBoxLayout(this);
    m_layout->setColumnStretch(0, 1);
    layout->addLayout(m_layout);
    m_more->hide();
    layout->addWidget(m_more);
    layout->addStretch();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    m_cancel = buttons->button(QDialogButtonBox::Cancel);
    connect(m_cancel, &QPushButton::clicked, this, &HVProgressWindow::cancelRequested);
    layout->addWidget(buttons);
}

void HVProgressWindow::reject()
{
    if (m_cancel->isEnabled())
        Q_EMIT cancelRequested();
}

void HVProgressWindow::setBars(const std::vector<HVProgressBarState>& bars)
{
    const std::size_t shown = std::min(bars.size(), g_mostRows);
    for (std::size_t i = 0; i < shown; ++i)
        fill(row(i), bars[i]);
    // Rows come and go with inner loops; the window keeps its size.
    for (std::size_t i = shown; i < m_rows.size(); ++i)
        for (QWidget* part : {static_cast<QWidget*>(m_rows[i].name), static_cast<QWidget*>(m_rows[i].timeLeft),
                              static_cast<QWidget*>(m_rows[i].bar)})
            part->hide();
    m_more->setVisible(bars.size() > shown);
    m_more->setText(tr("and %1 more").arg(bars.size() - shown));
    if (bars.empty())
        return;
    const bool cancelled =
        std::all_of(bars.begin(), bars.end(), [](const HVProgressBarState& bar) { return bar.cancelled; });
    m_cancel->setEnabled(!cancelled);
    m_cancel->setText(cancelled ? tr("Cancelling ...") : tr("Cancel"));
}

HVProgressWindow::Row& HVProgressWindow::row(std::size_t number)
{
    while (m_rows.size() <= number) {
        Row row{new QLabel, new QLabel, new QProgressBar, new QGridLayout};
        row.name->setTextFormat(Qt::PlainText);
        row.name->setMinimumWidth(0);
        row.name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        row.timeLeft->setForegroundRole(QPalette::PlaceholderText);
        row.layout->setColumnStretch(0, 1);
        row.layout->addWidget(row.name, 0, 0);
        row.layout->addWidget(row.timeLeft, 0, 1);
        row.layout->addWidget(row.bar, 1, 0, 1, 2);
        m_layout->addLayout(row.layout, static_cast<int>(m_rows.size()), 0);
        for (QWidget* part :
             {static_cast<QWidget*>(row.name), static_cast<QWidget*>(row.timeLeft), static_cast<QWidget*>(row.bar)})
            keepRoom(part);
        m_rows.push_back(row);
    }
    return m_rows[number];
}

void HVProgressWindow::fill(Row& row, const HVProgressBarState& state)
{
    const int indent = state.depth * style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this);
    row.layout->setContentsMargins(std::min(indent, width() / 3), 0, 0, 0);
    const QString line = state.name.simplified();
    row.name->setToolTip(line.toHtmlEscaped());
    row.bar->setAccessibleName(line);
    row.timeLeft->setText(state.cancelled     ? tr("cancelled")
                          : state.secondsLeft ? HVTimeLeft::text(*state.secondsLeft)
                                              : QString());
    const QMargins margins = layout()->contentsMargins();
    const int room = (isVisible() ? width() : minimumWidth()) - margins.left() - margins.right() - indent -
                     row.timeLeft->sizeHint().width() - row.layout->horizontalSpacing();
    row.name->setText(row.name->fontMetrics().elidedText(line, Qt::ElideRight, std::max(room, minimumWidth() / 3)));
    // A range of nothing makes the bar a moving one.
    row.bar->setRange(0, state.fraction ? g_resolution : 0);
    row.bar->setValue(static_cast<int>(state.fraction.value_or(0) * g_resolution));
    row.name->show();
    row.timeLeft->show();
    row.bar->show();
}
