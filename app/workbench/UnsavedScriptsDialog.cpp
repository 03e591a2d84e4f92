#include "app/workbench/UnsavedScriptsDialog.h"

#include "app/workbench/ScriptName.h"
#include "editor/HVPythonTextEdit.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace workbench {

namespace {

QString listed(const HVPythonTextEdit& script)
{
    return script.filename().isEmpty() ? tabTitle(script).section(QStringLiteral(" ["), 0, 0)
                                       : QDir::toNativeSeparators(script.filename());
}

} // namespace

UnsavedScriptsDialog::UnsavedScriptsDialog(const QList<HVPythonTextEdit*>& scripts, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Strativo"));
    auto* question =
        new QLabel(scripts.size() == 1 ? tr("This script contains unsaved changes. Save them before closing?")
                                       : tr("These scripts contain unsaved changes. Save them before closing?"));
    auto* names = new QListWidget;
    names->setSelectionMode(QAbstractItemView::NoSelection);
    names->setFocusPolicy(Qt::NoFocus);
    names->setTextElideMode(Qt::ElideMiddle);
    for (const HVPythonTextEdit* script : scripts)
        new QListWidgetItem(script->windowIcon(), listed(*script), names);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Discard | QDialogButtonBox::Cancel);
    QPushButton* save = buttons->button(QDialogButtonBox::Save);
    save->setText(scripts.size() == 1 ? tr("Save") : tr("Save All"));
    save->setDefault(true);
    buttons->button(QDialogButtonBox::Discard)->setText(tr("Discard"));

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(question);
    layout->addWidget(names, 1);
    layout->addWidget(buttons);
    resize(480, 220);
    save->setFocus();

    const auto answers = [this](QPushButton* button, Answer answer) {
        connect(button, &QPushButton::clicked, this, [this, answer] {
            m_answer = answer;
            accept();
        });
    };
    answers(save, Answer::Save);
    answers(buttons->button(QDialogButtonBox::Discard), Answer::Discard);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

UnsavedScriptsDialog::Answer UnsavedScriptsDialog::ask()
{
    m_answer = Answer::Cancel;
    exec();
    return m_answer;
}

} // namespace workbench
