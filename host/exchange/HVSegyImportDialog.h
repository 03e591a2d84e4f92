#pragma once

#include "host/data/HVProject.h"
#include "host/exchange/SegyInspector.h"
#include "host/segy/Import.h"

#include <QDialog>
#include <QPointer>
#include <QSet>
#include <QTimer>

class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QTabWidget;
class QTextBrowser;

namespace hv {
class SegyPositionsPage;
class SegyTextPage;
class SegyBinaryPage;
class SegyTracesPage;
class SegyVolumePage;
} // namespace hv

/// Shows what a SEG-Y file holds and how it is understood, lets that be changed, and asks for the name of the volume.
/// The file is looked at by jobs, anew after each change. OK is there only for what can be imported; what stands in the
/// way is said below. Imports nothing itself.
class HVSegyImportDialog : public QDialog
{
    Q_OBJECT

public:
    /// `taken` are names that the project's volumes will have besides those that are there. The dialog is rejected when
    /// the project goes.
    HVSegyImportDialog(const QString& path, HVProject& project, hv::JobManager& jobs, const QSet<QString>& taken = {},
                       QWidget* parent = nullptr);
    ~HVSegyImportDialog() override;

    /// Of the volume.
    QString name() const;
    /// Null while there is none of what is on the screen.
    const std::shared_ptr<const hv::segy::Scan>& scan() const { return m_scan; }
    /// What is imported of the scan.
    const hv::segy::ImportChoice& choice() const { return m_choice; }

    QLineEdit* nameField() const { return m_name; }
    hv::SegyPositionsPage* positionsPage() const { return m_positions; }
    hv::SegyVolumePage* volumePage() const { return m_volume; }
    hv::SegyTracesPage* tracesPage() const { return m_traces; }
    /// What stands in the way; empty when nothing does.
    QString problem() const;

    QSize sizeHint() const override;

private:
    void lookSoon();
    void look();
    void showPreview(const hv::SegyPreview& preview);
    void showScan(const std::shared_ptr<const hv::segy::Scan>& scan);
    void showRemarks(const hv::segy::Scan& scan);
    void fail(const QString& sentence);
    void check();
    QString freeName(const QString& base) const;
    QString nameProblem() const;

    QString m_path;
    QPointer<HVProject> m_project;
    QSet<QString> m_taken;
    hv::SegyInspector m_inspector;
    std::shared_ptr<const hv::segy::Scan> m_scan;
    hv::segy::ImportChoice m_choice;
    QTimer m_lookSoon;
    QString m_failure;
    QLineEdit* m_name;
    QLabel* m_extents;
    QTabWidget* m_pages;
    hv::SegyVolumePage* m_volume;
    hv::SegyPositionsPage* m_positions;
    hv::SegyTextPage* m_text;
    hv::SegyBinaryPage* m_binary;
    hv::SegyTracesPage* m_traces;
    QTextBrowser* m_remarks;
    QProgressBar* m_progress;
    QLabel* m_problem;
    QDialogButtonBox* m_buttons;
};
