#include "app/workbench/NewProjectDialog.h"

#include "host/data/HVProject.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace workbench {

NewProjectDialog::NewProjectDialog(const QString& parentFolder, QWidget* parent)
    : QDialog(parent), m_name(new QLineEdit), m_parentFolder(new QLineEdit(QDir::toNativeSeparators(parentFolder))),
      m_code(new QLineEdit), m_domain(new QComboBox), m_crsName(new QLabel), m_problem(new QLabel),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setWindowTitle(tr("New Project"));
    auto* browseButton = new QPushButton(tr("Browse..."));
    auto* place = new QHBoxLayout;
    place->addWidget(m_parentFolder);
    place->addWidget(browseButton);
    m_code->setPlaceholderText(tr("EPSG code, such as 32631; may be left empty"));
    m_domain->addItem(tr("Time"), static_cast<int>(georef::Domain::Time));
    m_domain->addItem(tr("Depth"), static_cast<int>(georef::Domain::Depth));
    m_problem->setWordWrap(true);
    m_crsName->setEnabled(false);
    m_buttons->button(QDialogButtonBox::Ok)->setText(tr("Create"));

    auto* form = new QFormLayout(this);
    form->addRow(tr("&Name:"), m_name);
    form->addRow(tr("&Folder:"), place);
    form->addRow(tr("&Reference system:"), m_code);
    form->addRow(QString(), m_crsName);
    form->addRow(tr("&Vertical axis:"), m_domain);
    form->addRow(m_problem);
    form->addRow(m_buttons);
    setMinimumWidth(480);

    connect(browseButton, &QPushButton::clicked, this, &NewProjectDialog::browse);
    connect(m_name, &QLineEdit::textChanged, this, &NewProjectDialog::check);
    connect(m_parentFolder, &QLineEdit::textChanged, this, &NewProjectDialog::check);
    connect(m_code, &QLineEdit::textChanged, this, &NewProjectDialog::lookUpCrs);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    check();
}

QString NewProjectDialog::name() const
{
    return m_name->text().trimmed();
}

QString NewProjectDialog::folder() const
{
    return QDir(QDir::fromNativeSeparators(m_parentFolder->text())).absoluteFilePath(name());
}

georef::Domain NewProjectDialog::domain() const
{
    return static_cast<georef::Domain>(m_domain->currentData().toInt());
}

void NewProjectDialog::browse()
{
    const QString chosen =
        QFileDialog::getExistingDirectory(this, tr("Folder of the New Project"), m_parentFolder->text());
    if (!chosen.isEmpty())
        m_parentFolder->setText(QDir::toNativeSeparators(chosen));
}

void NewProjectDialog::lookUpCrs()
{
    QString code = m_code->text().trimmed();
    if (code.startsWith(QLatin1String("EPSG:"), Qt::CaseInsensitive))
        code.remove(0, 5);
    m_crs = code.isEmpty() ? georef::Crs() : georef::orNull(georef::Crs::fromAuthority(QStringLiteral("EPSG"), code));
    m_crsName->setText(m_crs.name());
    check();
}

void NewProjectDialog::check()
{
    QString problem;
    bool isBlank = name().isEmpty();
    if (!isBlank && (!HVProject::isObjectName(name()) || name() == QLatin1String(".") || name() == QLatin1String("..")))
        problem = tr("This cannot be the name of a folder.");
    else if (!isBlank && QFileInfo::exists(QDir(folder()).filePath(HVProject::projectFileName())))
        problem = tr("There is a project of this name already.");
    else if (!QFileInfo(QDir::fromNativeSeparators(m_parentFolder->text())).isDir())
        problem = tr("The folder does not exist.");
    else if (!m_code->text().trimmed().isEmpty() && m_crs.isNull())
        problem = tr("There is no reference system with this code.");
    m_problem->setText(problem);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(!isBlank && problem.isEmpty());
}

} // namespace workbench
