#pragma once

#include <QDialog>

class HVPythonTextEdit;

namespace workbench {

/// One question about all scripts with unsaved changes: what is to become of them before they close?
class UnsavedScriptsDialog : public QDialog
{
    Q_OBJECT

public:
    enum class Answer
    {
        Cancel, ///< also when the dialog is closed
        Save,
        Discard,
    };

    /// `scripts` is not empty.
    explicit UnsavedScriptsDialog(const QList<HVPythonTextEdit*>& scripts, QWidget* parent = nullptr);

    Answer ask();

private:
    Answer m_answer = Answer::Cancel;
};

} // namespace workbench
