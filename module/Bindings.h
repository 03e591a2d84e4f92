#pragma once

/// The registrations of the scripting module, in the order in which the module frame calls them. Each registers one
/// class, enumeration (or a group of small ones) or submodule in the current scope; its file has the same name in one
/// of the families' folders.
namespace python {

void bindIntArray();
void bindFloatArray();
void bindDoubleArray();
void bindVec3Array();

void bindVec2();
void bindVec3();
void bindVec4();
void bindMat3();
void bindMat4();
void bindRect2D();
void bindRect3D();

void bindKey();
void bindInputEnumerations();
void bindWidgetEnumerations();
void bindDrawingEnumerations();
void bindPoint();
void bindPointF();
void bindSize();
void bindRectangle();
void bindColor();
void bindPen();
void bindFont();
void bindMimeData();
void bindObject();
void bindEvents();
void bindWidget();
void bindIcon();
void bindAction();
void bindFrame();
void bindAbstractScrollArea();
void bindTextEdit();
void bindAbstractButton();
void bindButton();
void bindLabel();
void bindLineEdit();
void bindCheckBox();
void bindRadioButton();
void bindComboBox();
void bindAbstractSpinBox();
void bindSpinBox();
void bindDoubleSpinBox();
void bindAbstractSlider();
void bindSlider();
void bindProgressBar();
void bindDialog();
void bindMenu();
void bindMenuBar();
void bindToolBar();
void bindLayout();
void bindBoxLayout();
void bindGridLayout();
void bindFormLayout();
void bindScrollArea();
void bindStackedWidget();
void bindTabWidget();
void bindSplitter();
void bindGroupBox();
void bindSubWindow();
void bindSwitch();
void bindFilePathLineEdit();
void bindObjectComboBox();
void bindInputSelectionLineEdit();
void bindInputSelectionPreview();
void bindMainWindow();
void bindModalProgressBar();

void bindNoValue();
void bindObjectId();
void bindScanOrientation();
void bindInterpolationMethod();
void bindSmoothingMethod();
void bindScaleType();
void bindUnit();
void bindDomain();
void bindCrs();
void bindProject();
void bindImageBase();
void bindImage2d();
void bindImage3d();
void bindBlockSpace();
void bindColorSpace();
void bindColorBarType();
void bindColorBar();
void bindContouringMode();
void bindContouring();

void bindVolumeStatistics();
void bindVolume();
void bindVolumePiece();
void bindSeismicVolume();
void bindRandomLineSection();
void bindRandomLine();

void bindApplicationInterface();

void bindUtils();
void bindSegy();

} // namespace python
