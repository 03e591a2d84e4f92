#include "editor/debugger/PythonValueDelegate.h"

#include "editor/debugger/VariableTreeModel.h"
#include "runtime/GilLock.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSpinBox>

#include <limits>

namespace {

constexpr int g_decimals = 10;

/// The smallest number that can be entered is the smallest normal double; the box itself rounds its limits to its
/// decimals and would admit zero.
class PositiveSpinBox final : public QDoubleSpinBox
{
public:
    PositiveSpinBox(double least, double most, QWidget* parent) : QDoubleSpinBox(parent), m_least(least)
    {
        setFrame(false);
        setDecimals(g_decimals);
        setRange(least, most);
    }

    QValidator::State validate(QString& text, int& position) const override
    {
        const QValidator::State state = QDoubleSpinBox::validate(text, position);
        return state == QValidator::Acceptable && valueFromText(text) < m_least ? QValidator::Intermediate : state;
    }
    void stepBy(int steps) override
    {
        if (value() + steps * singleStep() >= m_least)
            QDoubleSpinBox::stepBy(steps);
    }

private:
    const double m_least;
};

QWidget* makeFloatEditor(QWidget* parent)
{
    const python::GilLock lock;
    return new PositiveSpinBox(PyFloat_GetMin(), PyFloat_GetMax(), parent);
}

} // namespace

QWidget* PythonValueDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                           const QModelIndex& index) const
{
    switch (index.data(VariableTreeModel::KindRole).toInt()) {
    case VariableTreeModel::BoolKind: {
        auto* editor = new QComboBox(parent);
        editor->addItems({QStringLiteral("True"), QStringLiteral("False")});
        return editor;
    }
    case VariableTreeModel::IntKind: {
        auto* editor = new QSpinBox(parent);
        editor->setFrame(false);
        editor->setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
        return editor;
    }
    case VariableTreeModel::FloatKind:
        return makeFloatEditor(parent);
    case VariableTreeModel::StrKind: {
        auto* editor = new QLineEdit(parent);
        editor->setFrame(false);
        return editor;
    }
    default:
        return nullptr;
    }
}
