#pragma once

#include "host/exchange/TraceHeaderModel.h"

#include <QWidget>

class QComboBox;
class QPlainTextEdit;
class QTableView;
class QTableWidget;

namespace hv {

/// The textual headers of a file, and the encoding that they are read in.
class SegyTextPage : public QWidget
{
    Q_OBJECT

public:
    explicit SegyTextPage(QWidget* parent = nullptr);
    void setPreview(const SegyPreview& preview);
    void choose(segy::ScanChoice& choice) const;

Q_SIGNALS:
    void edited();

private:
    QComboBox* m_encoding;
    QPlainTextEdit* m_text;
};

/// The binary header, field by field.
class SegyBinaryPage : public QWidget
{
    Q_OBJECT

public:
    explicit SegyBinaryPage(QWidget* parent = nullptr);
    void setPreview(const SegyPreview& preview);

private:
    QTableWidget* m_fields;
};

/// The headers of the first traces. The menu of a column's title makes it what is read.
class SegyTracesPage : public QWidget
{
    Q_OBJECT

public:
    explicit SegyTracesPage(QWidget* parent = nullptr);
    void setPreview(const SegyPreview& preview);
    void setPositions(const segy::Positions& positions);
    QTableView* table() const { return m_table; }

Q_SIGNALS:
    /// `role` counts in positionRoles().
    void positionChosen(int role, hv::segy::Position position);

private:
    void showMenu(const QPoint& place);

    TraceHeaderModel* m_model;
    QTableView* m_table;
};

} // namespace hv
