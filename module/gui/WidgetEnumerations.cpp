#include "host/widgets/HVFileDialogType.h"
#include "module/Bindings.h"
#include "module/EnumerationTable.h"

#include <QComboBox>
#include <QDialog>
#include <QFrame>
#include <QScrollArea>
#include <QScrollEvent>
#include <QSlider>

namespace python {

namespace {

constexpr NamedValue<Qt::WindowModality> g_modalities[] = {
    {"NonModal", Qt::NonModal},
    {"Window", Qt::WindowModal},
    {"Application", Qt::ApplicationModal},
};

constexpr NamedValue<QDialog::DialogCode> g_dialogResponses[] = {
    {"Rejected", QDialog::Rejected},
    {"Accepted", QDialog::Accepted},
};

constexpr NamedValue<Qt::AlignmentFlag> g_alignments[] = {
    {"Left", Qt::AlignLeft},         {"Leading", Qt::AlignLeading},   {"Right", Qt::AlignRight},
    {"Trailing", Qt::AlignTrailing}, {"HCenter", Qt::AlignHCenter},   {"Justify", Qt::AlignJustify},
    {"Absolute", Qt::AlignAbsolute}, {"Top", Qt::AlignTop},           {"Bottom", Qt::AlignBottom},
    {"VCenter", Qt::AlignVCenter},   {"Baseline", Qt::AlignBaseline}, {"Center", Qt::AlignCenter},
};

constexpr NamedValue<Qt::CheckState> g_checkStates[] = {
    {"Unchecked", Qt::Unchecked},
    {"PartiallyChecked", Qt::PartiallyChecked},
    {"Checked", Qt::Checked},
};

constexpr NamedValue<Qt::Orientation> g_orientations[] = {
    {"Horizontal", Qt::Horizontal},
    {"Vertical", Qt::Vertical},
};

/// Qt 5.15 calls the enumerator deprecated; its number works in all of Qt 5.
constexpr auto g_adjustToMinimumContentsLength = static_cast<QComboBox::SizeAdjustPolicy>(2);

constexpr NamedValue<QComboBox::SizeAdjustPolicy> g_comboBoxSizePolicies[] = {
    {"AdjustToContents", QComboBox::AdjustToContents},
    {"AdjustToContentsOnFirstShow", QComboBox::AdjustToContentsOnFirstShow},
    {"AdjustToMinimumContentsLength", g_adjustToMinimumContentsLength},
    {"AdjustToMinimumContentsLengthWithIcon", QComboBox::AdjustToMinimumContentsLengthWithIcon},
};

constexpr NamedValue<HVFileDialogType> g_fileDialogTypes[] = {
    {"Open", HVFileDialogType::Open},
    {"Save", HVFileDialogType::Save},
};

constexpr NamedValue<QAbstractScrollArea::SizeAdjustPolicy> g_scrollSizeAdjusts[] = {
    {"AdjustIgnored", QAbstractScrollArea::AdjustIgnored},
    {"AdjustToContentsOnFirstShow", QAbstractScrollArea::AdjustToContentsOnFirstShow},
    {"AdjustToContents", QAbstractScrollArea::AdjustToContents},
};

constexpr NamedValue<Qt::ScrollBarPolicy> g_scrollBarPolicies[] = {
    {"AsNeeded", Qt::ScrollBarAsNeeded},
    {"AlwaysOff", Qt::ScrollBarAlwaysOff},
    {"AlwaysOn", Qt::ScrollBarAlwaysOn},
};

constexpr NamedValue<QScrollEvent::ScrollState> g_scrollEventStates[] = {
    {"Started", QScrollEvent::ScrollStarted},
    {"Updated", QScrollEvent::ScrollUpdated},
    {"Finished", QScrollEvent::ScrollFinished},
};

constexpr NamedValue<QSlider::TickPosition> g_tickPositions[] = {
    {"NoTicks", QSlider::NoTicks},       {"TicksAbove", QSlider::TicksAbove},
    {"TicksLeft", QSlider::TicksLeft},   {"TicksBelow", QSlider::TicksBelow},
    {"TicksRight", QSlider::TicksRight}, {"TicksBothSides", QSlider::TicksBothSides},
};

constexpr NamedValue<QFrame::Shadow> g_frameShadows[] = {
    {"Plain", QFrame::Plain},
    {"Raised", QFrame::Raised},
    {"Sunken", QFrame::Sunken},
};

constexpr NamedValue<QFrame::Shape> g_frameShapes[] = {
    {"NoFrame", QFrame::NoFrame},         {"Box", QFrame::Box},     {"Panel", QFrame::Panel},
    {"WinPanel", QFrame::WinPanel},       {"HLine", QFrame::HLine}, {"VLine", QFrame::VLine},
    {"StyledPanel", QFrame::StyledPanel},
};

constexpr NamedValue<Qt::TextFormat> g_textFormats[] = {
    {"PlainText", Qt::PlainText},
    {"RichText", Qt::RichText},
    {"AutoText", Qt::AutoText},
};

} // namespace

void bindWidgetEnumerations()
{
    registerEnumeration("Modality", "Which windows wait while a dialog is open.", g_modalities);
    registerEnumeration("DialogResponse", "How a dialog was closed.", g_dialogResponses);
    registerEnumeration("Align",
                        "Where something stands in its place. A horizontal and a vertical one are combined with |: "
                        "Align.Left | Align.Top. Leading and Trailing are other names of Left and Right.",
                        g_alignments);
    registerEnumeration("CheckState", "The state of a check box.", g_checkStates);
    registerEnumeration("Orientation", "The direction in which a slider or a splitter lies.", g_orientations);
    registerEnumeration("ComboBoxSizePolicy", "How a combo box finds its width.", g_comboBoxSizePolicies);
    registerEnumeration("FileDialogType", "What a file chooser is for.", g_fileDialogTypes);
    registerEnumeration("ScrollSizeAdjust", "How a scroll area finds its size.", g_scrollSizeAdjusts);
    registerEnumeration("ScrollBarPolicy", "When a scroll bar is shown.", g_scrollBarPolicies);
    registerEnumeration("ScrollEventState", "The phase of a scroll gesture.", g_scrollEventStates);
    registerEnumeration("SliderTickPosition",
                        "Where a slider has its tick marks. The sides of a vertical slider are other names of those of "
                        "a horizontal one: TicksLeft of TicksAbove, TicksRight of TicksBelow.",
                        g_tickPositions);
    registerEnumeration("FrameShadow", "How the line of a frame stands out.", g_frameShadows);
    registerEnumeration("FrameShape", "The form of a frame.", g_frameShapes);
    registerEnumeration("TextFormat", "How a text is read: as it is, as HTML, or as what it looks like.",
                        g_textFormats);
}

} // namespace python
