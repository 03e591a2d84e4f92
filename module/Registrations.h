#pragma once

#include "module/ArgumentErrors.h"
#include "module/Bindings.h"
#include "module/PathArgument.h"
#include "runtime/EnumerationLookup.h"
#include "runtime/NumberArguments.h"
#include "runtime/TextConversion.h"
#include "runtime/VariantConversion.h"

#include <boost/python.hpp>

namespace python {

/// What of the module there is: values and data alone, as child processes have them, or windows and the application
/// too.
enum class Extent
{
    Values,
    Whole,
};

/// Registers the module in the current scope. One list serves both extents, since the order matters: a family may name
/// types of an earlier one in its signatures and default values.
template <Extent extent>
void registerModule()
{
    // C++ signatures are left out: every docstring begins with the Python one.
    const boost::python::docstring_options docstrings(true, false, false);

    translateArgumentErrors();

    registerTextConversion();
    registerVariantConversion();
    registerNumberConversion();
    registerPathConversion();

    bindIntArray();
    bindFloatArray();
    bindDoubleArray();
    bindVec3Array();

    bindVec2();
    bindVec3();
    bindVec4();
    bindMat3();
    bindMat4();
    bindRect2D();
    bindRect3D();

    if constexpr (extent == Extent::Whole) {
        bindKey();
        bindInputEnumerations();
        bindWidgetEnumerations();
    }
    bindDrawingEnumerations();
    bindPoint();
    bindPointF();
    bindSize();
    bindRectangle();
    bindColor();
    bindPen();
    if constexpr (extent == Extent::Whole) {
        bindFont();
        bindMimeData();
        bindObject();
        bindEvents();
        bindWidget();
        bindIcon();
        bindAction();
        bindFrame();
        bindAbstractScrollArea();
        bindTextEdit();
        bindAbstractButton();
        bindButton();
        bindLabel();
        bindLineEdit();
        bindCheckBox();
        bindRadioButton();
        bindComboBox();
        bindAbstractSpinBox();
        bindSpinBox();
        bindDoubleSpinBox();
        bindAbstractSlider();
        bindSlider();
        bindProgressBar();
        bindDialog();
        bindMenu();
        bindMenuBar();
        bindToolBar();
        bindLayout();
        bindBoxLayout();
        bindGridLayout();
        bindFormLayout();
        bindScrollArea();
        bindStackedWidget();
        bindTabWidget();
        bindSplitter();
        bindGroupBox();
        bindSubWindow();
        bindSwitch();
        bindFilePathLineEdit();
        bindObjectComboBox();
        bindInputSelectionLineEdit();
        bindInputSelectionPreview();
        bindMainWindow();
        bindModalProgressBar();
    }

    bindNoValue();
    bindObjectId();
    bindScanOrientation();
    bindInterpolationMethod();
    bindSmoothingMethod();
    bindScaleType();
    bindUnit();
    bindDomain();
    bindCrs();
    bindProject();
    bindImageBase();
    bindImage2d();
    bindImage3d();
    bindBlockSpace();
    bindColorSpace();
    bindColorBarType();
    bindColorBar();
    bindContouringMode();
    bindContouring();

    bindVolumeStatistics();
    bindVolume();
    bindVolumePiece();
    bindSeismicVolume();
    bindRandomLineSection();
    bindRandomLine();

    if constexpr (extent == Extent::Whole)
        bindApplicationInterface();

    bindUtils();
    bindSegy();

    nameCalledEnumerations(boost::python::scope().ptr());
}

} // namespace python
