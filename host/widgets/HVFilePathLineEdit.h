#pragma once

#include "host/widgets/HVFileDialogType.h"

#include <QWidget>

class QFileDialog;
class QLineEdit;
class QMimeData;
class QToolButton;

/// A line for the path of a file, with a button that opens a file chooser. A file dragged onto it gives its path.
///
/// The path is what was settled last: by Return, by leaving the line, by choosing, dropping or setPath(); not each key.
/// It need not exist.
class HVFilePathLineEdit : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString path READ path WRITE setPath NOTIFY pathChanged USER true)
    Q_PROPERTY(QString placeholderText READ placeholderText WRITE setPlaceholderText)
    Q_PROPERTY(QString fileFilter READ fileFilter WRITE setFileFilter)
    Q_PROPERTY(QString dialogTitle READ dialogTitle WRITE setDialogTitle)

public:
    explicit HVFilePathLineEdit(QWidget* parent = nullptr);

    /// With "/" as separator, as Qt and Python take it on every system; the line shows the native ones. Spaces and
    /// quotes around it, a leading "~" and the form of a file URL are resolved. Relative paths stay what they are.
    QString path() const { return m_path; }
    void setPath(const QString& path);

    QString placeholderText() const;
    void setPlaceholderText(const QString& text);

    /// As for QFileDialog: "SEG-Y files (*.sgy *.segy);;All files (*)". Empty for all files.
    QString fileFilter() const { return m_fileFilter; }
    void setFileFilter(const QString& filter) { m_fileFilter = filter; }
    /// Empty for the usual title of the type.
    QString dialogTitle() const { return m_dialogTitle; }
    void setDialogTitle(const QString& title) { m_dialogTitle = title; }
    /// Open (at first) chooses an existing file; Save any, asks before one is replaced and completes the suffix.
    HVFileDialogType dialogType() const { return m_dialogType; }
    void setDialogType(HVFileDialogType type);

    QLineEdit* line() const { return m_line; }
    QToolButton* button() const { return m_button; }

public Q_SLOTS:
    /// Opens the chooser in the folder of the path, or in the one chosen from last. Does not wait for the answer.
    void browse();

Q_SIGNALS:
    /// Only when the path has changed.
    void pathChanged(const QString& path);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QString startFolder() const;
    QString dropped(const QMimeData& dragged) const;
    void showType();

    QLineEdit* m_line;
    QToolButton* m_button;
    QString m_path;
    QString m_fileFilter;
    QString m_dialogTitle;
    HVFileDialogType m_dialogType = HVFileDialogType::Open;
};
