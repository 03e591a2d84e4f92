#pragma once

#include <QDialog>

#include <memory>

class HVPreviewViewer;
class QLabel;
class QTableWidget;

namespace hv {
class DataObject;
}

/// What there is to know about one object of the project: its picture, and what its kind says of it. Follows the
/// object's changes, and closes when it is gone. Does not keep the user from working on.
class HVObjectInformation : public QDialog
{
    Q_OBJECT

public:
    explicit HVObjectInformation(std::shared_ptr<hv::DataObject> object, QWidget* parent = nullptr);
    ~HVObjectInformation() override;

    QTableWidget* rows() const { return m_rows; }
    HVPreviewViewer* viewer() const { return m_viewer; }

private:
    void showRows();

    std::shared_ptr<hv::DataObject> m_object;
    HVPreviewViewer* m_viewer;
    QTableWidget* m_rows;
};
