#include "host/exchange/HVSegyImportDialog.h"

#include "host/exchange/SegyHeaderPages.h"
#include "host/exchange/SegyPositionsPage.h"
#include "host/exchange/SegyVolumePage.h"
#include "host/volume/VolumeSettings.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QVBoxLayout>

using namespace hv;

namespace {

constexpr int g_typingMilliseconds = 400;
constexpr int g_resolution = 1000; // of the progress bar
constexpr QSize g_preferredSize(820, 680);

QString weightText(segy::Remark::Weight weight)
{
    using Weight = segy::Remark::Weight;
    switch (weight) {
    case Weight::Found:
        return HVSegyImportDialog::tr("Found");
    case Weight::Assumed:
        return HVSegyImportDialog::tr("Assumed");
    case Weight::Doubtful:
        return HVSegyImportDialog::tr("Doubtful");
    case Weight::Prevents:
        break;
    }
    return HVSegyImportDialog::tr("Needed");
}

QString extentsText(const VolumeHeader& header, const VolumeOrders& orders)
{
    const QLocale locale;
    return HVSegyImportDialog::tr("%1 inlines, %2 crosslines, %3 samples: %4")
        .arg(locale.toString(header.inlines()), locale.toString(header.crosslines()),
             locale.toString(header.sampleCount()),
             locale.formattedDataSize(VolumeLayout::make(header.space, orders).fileSize(header.space)));
}

} // namespace

HVSegyImportDialog::HVSegyImportDialog(const QString& path, HVProject& project, JobManager& jobs,
                                       const QSet<QString>& taken, QWidget* parent)
    : QDialog(parent), m_path(path), m_project(&project), m_taken(taken), m_inspector(jobs), m_name(new QLineEdit),
      m_extents(new QLabel), m_pages(new QTabWidget), m_volume(new SegyVolumePage(project)),
      m_positions(new SegyPositionsPage), m_text(new SegyTextPage), m_binary(new SegyBinaryPage),
      m_traces(new SegyTracesPage), m_remarks(new QTextBrowser), m_progress(new QProgressBar), m_problem(new QLabel),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setWindowTitle(tr("Import SEG-Y"));
    setObjectName(QStringLiteral("segyImportDialog"));
    const QFileInfo file(path);
    auto* place = new QLabel(file.fileName());
    place->setTextFormat(Qt::PlainText);
    place->setToolTip(QDir::toNativeSeparators(path));
    place->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_name->setText(freeName(file.completeBaseName().trimmed()));
    m_pages->addTab(m_volume, tr("Volume"));
    m_pages->addTab(m_positions, tr("Positions"));
    m_pages->addTab(m_text, tr("Text Header"));
    m_pages->addTab(m_binary, tr("Binary Header"));
    m_pages->addTab(m_traces, tr("Trace Headers"));
    m_remarks->setTabChangesFocus(true);
    m_remarks->setAccessibleName(tr("How the file is understood"));
    m_progress->setTextVisible(false);
    m_progress->setMaximumHeight(8);
    m_problem->setWordWrap(true);
    m_problem->setTextFormat(Qt::PlainText);
    // Two lines, so that a sentence that comes does not move the fields.
    m_problem->setMinimumHeight(2 * fontMetrics().lineSpacing());
    m_problem->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_buttons->button(QDialogButtonBox::Ok)->setText(tr("I&mport"));

    auto* form = new QFormLayout;
    form->addRow(tr("File:"), place);
    form->addRow(tr("N&ame:"), m_name);
    form->addRow(tr("Volume:"), m_extents);
    auto* understood = new QLabel(tr("How the fil&e is understood:"));
    understood->setBuddy(m_remarks);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    auto* below = new QWidget;
    auto* lines = new QVBoxLayout(below);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->addWidget(understood);
    lines->addWidget(m_remarks);
    auto* parts = new QSplitter(Qt::Vertical);
    parts->setChildrenCollapsible(false);
    parts->addWidget(m_pages);
    parts->addWidget(below);
    parts->setStretchFactor(0, 3);
    parts->setStretchFactor(1, 2);
    layout->addWidget(parts, 1);
    layout->addWidget(m_progress);
    layout->addWidget(m_problem);
    layout->addWidget(m_buttons);

    m_lookSoon.setSingleShot(true);
    m_lookSoon.setInterval(g_typingMilliseconds);
    connect(&m_lookSoon, &QTimer::timeout, this, &HVSegyImportDialog::look);
    connect(m_volume, &SegyVolumePage::edited, this, &HVSegyImportDialog::lookSoon);
    connect(m_volume, &SegyVolumePage::partEdited, this, &HVSegyImportDialog::check);
    connect(m_positions, &SegyPositionsPage::edited, this, &HVSegyImportDialog::lookSoon);
    connect(m_text, &SegyTextPage::edited, this, &HVSegyImportDialog::lookSoon);
    connect(m_traces, &SegyTracesPage::positionChosen, m_positions, &SegyPositionsPage::setPosition);
    connect(m_name, &QLineEdit::textChanged, this, &HVSegyImportDialog::check);
    connect(&m_inspector, &SegyInspector::opened, this, &HVSegyImportDialog::showPreview);
    connect(&m_inspector, &SegyInspector::scanned, this, &HVSegyImportDialog::showScan);
    connect(&m_inspector, &SegyInspector::failed, this, &HVSegyImportDialog::fail);
    connect(&m_inspector, &SegyInspector::advanced, this, [this](std::optional<double> fraction) {
        m_progress->setRange(0, fraction ? g_resolution : 0);
        m_progress->setValue(static_cast<int>(fraction.value_or(0) * g_resolution));
    });
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(&project, &QObject::destroyed, this, &QDialog::reject);
    m_name->setFocus();
    m_name->selectAll();
    look();
}

HVSegyImportDialog::~HVSegyImportDialog() = default;

QSize HVSegyImportDialog::sizeHint() const
{
    return g_preferredSize.expandedTo(minimumSizeHint());
}

QString HVSegyImportDialog::name() const
{
    return m_name->text().trimmed();
}

QString HVSegyImportDialog::freeName(const QString& base) const
{
    QString name = base;
    for (int number = 2; m_taken.contains(name) || m_project->store().contains({ObjectKind::Volume, name}); ++number)
        name = QStringLiteral("%1 %2").arg(base).arg(number);
    return name;
}

QString HVSegyImportDialog::nameProblem() const
{
    if (name().isEmpty())
        return tr("The volume needs a name.");
    if (!HVProject::isObjectName(name()))
        return tr("\"%1\" cannot be the name of a volume.").arg(name());
    if (m_taken.contains(name()) || (m_project && m_project->store().contains({ObjectKind::Volume, name()})))
        return tr("There is a volume of this name already.");
    return {};
}

void HVSegyImportDialog::lookSoon()
{
    m_inspector.stop();
    m_scan.reset();
    m_lookSoon.start();
    check();
}

void HVSegyImportDialog::look()
{
    m_scan.reset();
    m_failure.clear();
    if (m_volume->problem().isEmpty() && m_positions->problem().isEmpty()) {
        segy::ScanChoice choice;
        m_volume->choose(choice);
        m_positions->choose(choice);
        m_text->choose(choice);
        m_progress->setRange(0, 0);
        m_inspector.look(m_path, choice);
    }
    check();
}

void HVSegyImportDialog::showPreview(const SegyPreview& preview)
{
    m_volume->setPreview(preview);
    m_positions->setPreview(preview);
    m_text->setPreview(preview);
    m_binary->setPreview(preview);
    m_traces->setPreview(preview);
}

void HVSegyImportDialog::showScan(const std::shared_ptr<const segy::Scan>& scan)
{
    m_scan = scan;
    m_volume->setScan(*scan);
    m_positions->setScan(*scan);
    m_traces->setPositions(scan->positions);
    showRemarks(*scan);
    check();
}

void HVSegyImportDialog::showRemarks(const segy::Scan& scan)
{
    QString rows;
    for (const segy::Remark& remark : scan.remarks.all()) {
        const bool isGrave = remark.weight >= segy::Remark::Weight::Doubtful;
        rows +=
            QStringLiteral("<tr><td style=\"padding-right:10px\">%1</td><td>%2</td></tr>")
                .arg(isGrave ? QStringLiteral("<b>%1</b>").arg(weightText(remark.weight)) : weightText(remark.weight),
                     remark.text.toHtmlEscaped());
    }
    m_remarks->setHtml(QStringLiteral("<table cellspacing=\"2\">%1</table>").arg(rows));
}

void HVSegyImportDialog::fail(const QString& sentence)
{
    m_failure = sentence;
    check();
}

QString HVSegyImportDialog::problem() const
{
    return m_problem->text();
}

void HVSegyImportDialog::check()
{
    const bool isBusy = m_inspector.isBusy() || m_lookSoon.isActive();
    QString problem = m_failure;
    m_extents->clear();
    for (const QString& sentence : {m_positions->problem(), m_volume->problem()})
        if (problem.isEmpty())
            problem = sentence;
    if (problem.isEmpty() && m_scan) {
        m_choice = {};
        m_volume->choose(m_choice);
        if (!m_scan->survey)
            m_choice.crs.clear(); // line numbers are in none
        problem = m_scan->remarks.obstacle();
        if (const auto header = problem.isEmpty() ? segy::volumeHeader(*m_scan, m_choice) : Failure(problem)) {
            m_choice.orders = preferredOrders(header->space);
            m_extents->setText(extentsText(*header, m_choice.orders));
        } else {
            problem = header.failure().sentence;
        }
    }
    if (problem.isEmpty())
        problem = nameProblem();
    // The bar keeps its place.
    QSizePolicy policy = m_progress->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_progress->setSizePolicy(policy);
    m_progress->setVisible(isBusy);
    m_problem->setText(problem);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(problem.isEmpty() && m_scan && !isBusy);
}
