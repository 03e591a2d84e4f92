#pragma once

#include "host/georef/Crs.h"
#include "host/georef/Enumerations.h"

#include <QDialog>

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;

namespace workbench {

/// Asks for a new project's name, place, reference system and domain. OK is there only for what can be made; what
/// stands in the way is said below the fields.
class NewProjectDialog : public QDialog
{
    Q_OBJECT

public:
    /// `parentFolder` is where projects lie.
    explicit NewProjectDialog(const QString& parentFolder, QWidget* parent = nullptr);

    QString name() const;
    /// The project's own folder, named after it.
    QString folder() const;
    /// Null when none was asked for.
    georef::Crs crs() const { return m_crs; }
    georef::Domain domain() const;

private:
    void browse();
    void lookUpCrs();
    void check();

    QLineEdit* m_name;
    QLineEdit* m_parentFolder;
    QLineEdit* m_code;
    QComboBox* m_domain;
    QLabel* m_crsName;
    QLabel* m_problem;
    QDialogButtonBox* m_buttons;
    georef::Crs m_crs;
};

} // namespace workbench
