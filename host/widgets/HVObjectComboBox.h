#pragma once

#include "host/kinds/ObjectKind.h"

#include <QComboBox>

#include <set>

class HVProject;
class HVProjectObjects;
class ObjectRows;

/// A combo box of the open project's objects of some kinds, in the order of the project browser; an object that is
/// filed in virtual directories stands there with them, "North/Deep/Top 2". Objects dragged from the browser, or from
/// a file manager, onto it are chosen.
///
/// It follows the project. The chosen object stays chosen, under a new name too; when it goes, nothing is chosen until
/// it comes back or the user chooses, so that another object is never taken in its place unseen. At first the first
/// row is chosen, as in every combo box.
///
/// The items are the project's: adding and removing items has no effect. An item's data (Qt::UserRole) is the absolute
/// path of the object's file. Ten thousand objects take some ten milliseconds.
class HVObjectComboBox : public QComboBox
{
    Q_OBJECT
    Q_PROPERTY(bool optional READ isOptional WRITE setOptional)
    Q_PROPERTY(QString object READ object WRITE setObject NOTIFY objectChanged)

public:
    /// Of all kinds that scripts know, or those of the FirstKinds that there are.
    explicit HVObjectComboBox(QWidget* parent = nullptr);
    explicit HVObjectComboBox(ObjectKind kind, QWidget* parent = nullptr);
    /// All kinds that scripts know for an empty set.
    explicit HVObjectComboBox(const std::set<ObjectKind>& kinds, QWidget* parent = nullptr);
    ~HVObjectComboBox() override;

    /// The kinds of the boxes that are made without any while this lives, for makers that know the class only as a
    /// widget: setting them afterwards would list the project a second time. Nests; GUI thread only.
    class FirstKinds
    {
    public:
        explicit FirstKinds(std::set<ObjectKind> kinds) : m_kinds(std::move(kinds)) { s_current = this; }
        ~FirstKinds() { s_current = m_outer; }
        FirstKinds(const FirstKinds&) = delete;
        FirstKinds& operator=(const FirstKinds&) = delete;
        static std::set<ObjectKind> current() { return s_current ? s_current->m_kinds : std::set<ObjectKind>(); }

    private:
        static inline const FirstKinds* s_current = nullptr;
        const FirstKinds* m_outer = s_current;
        std::set<ObjectKind> m_kinds;
    };

    const std::set<ObjectKind>& kinds() const;
    /// All kinds that scripts know for an empty set.
    void setKinds(std::set<ObjectKind> kinds);
    /// Null when there is none.
    HVProject* project() const;
    /// This project instead of the application's, which the box follows by itself.
    void setProject(HVProject* project);

    /// Whether a first row "None" stands for no object.
    bool isOptional() const;
    void setOptional(bool optional);

    /// Absolute path of the chosen object's file; empty for none.
    QString object() const;
    /// False, and nothing has changed, for a path that is not listed. Empty for no object.
    bool setObject(const QString& path);

public Q_SLOTS:
    /// Lists the objects at once; changes that the project tells of are listed in a moment anyway.
    void updateObjects();

Q_SIGNALS:
    void objectChanged(const QString& path);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void startAnew();
    void list(bool fromFirst);
    void tellChange();
    void showHint();

    HVProjectObjects* m_objects;
    ObjectRows* m_rows;
    QString m_chosen; // stays while the object is away
    QString m_told;
    bool m_isTouched = false; // the user or the program has chosen
    bool m_updating = false;
};
