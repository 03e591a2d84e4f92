#include "module/ModuleFrame.h"

#include "module/ArgumentErrors.h"
#include "module/Bindings.h"
#include "module/PathArgument.h"
#include "runtime/EnumerationLookup.h"
#include "runtime/NumberArguments.h"
#include "runtime/TextConversion.h"
#include "runtime/VariantConversion.h"

#include <boost/python.hpp>

namespace bp = boost::python;

BOOST_PYTHON_MODULE(strativo_python)
{
    // C++ signatures are left out: every docstring begins with the Python one.
    const bp::docstring_options docstrings(true, false, false);

    python::translateArgumentErrors();

    // The order matters: a family may name types of an earlier one in its signatures and default values.
    python::registerTextConversion();
    python::registerVariantConversion();
    python::registerNumberConversion();
    python::registerPathConversion();

    python::bindIntArray();
    python::bindFloatArray();
    python::bindDoubleArray();
    python::bindVec3Array();

    python::bindVec2();
    python::bindVec3();
    python::bindVec4();
    python::bindMat3();
    python::bindMat4();
    python::bindRect2D();
    python::bindRect3D();

    python::bindKey();
    python::bindInputEnumerations();
    python::bindWidgetEnumerations();
    python::bindDrawingEnumerations();
    python::bindPoint();
    python::bindPointF();
    python::bindSize();
    python::bindRectangle();
    python::bindColor();
    python::bindPen();
    python::bindFont();
    python::bindMimeData();
    python::bindObject();
    python::bindEvents();
    python::bindWidget();
    python::bindIcon();
    python::bindAction();
    python::bindFrame();
    python::bindAbstractScrollArea();
    python::bindTextEdit();
    python::bindAbstractButton();
    python::bindButton();
    python::bindLabel();
    python::bindLineEdit();
    python::bindCheckBox();
    python::bindRadioButton();
    python::bindComboBox();
    python::bindAbstractSpinBox();
    python::bindSpinBox();
    python::bindDoubleSpinBox();
    python::bindAbstractSlider();
    python::bindSlider();
    python::bindProgressBar();
    python::bindDialog();
    python::bindMenu();
    python::bindMenuBar();
    python::bindToolBar();
    python::bindLayout();
    python::bindBoxLayout();
    python::bindGridLayout();
    python::bindFormLayout();
    python::bindScrollArea();
    python::bindStackedWidget();
    python::bindTabWidget();
    python::bindSplitter();
    python::bindGroupBox();
    python::bindSubWindow();
    python::bindSwitch();
    python::bindFilePathLineEdit();
    python::bindObjectComboBox();
    python::bindInputSelectionLineEdit();
    python::bindInputSelectionPreview();
    python::bindMainWindow();
    python::bindModalProgressBar();

    python::bindNoValue();
    python::bindObjectId();
    python::bindScanOrientation();
    python::bindInterpolationMethod();
    python::bindSmoothingMethod();
    python::bindScaleType();
    python::bindUnit();
    python::bindDomain();
    python::bindCrs();
    python::bindProject();
    python::bindImageBase();
    python::bindImage2d();
    python::bindImage3d();
    python::bindBlockSpace();
    python::bindColorSpace();
    python::bindColorBarType();
    python::bindColorBar();
    python::bindContouringMode();
    python::bindContouring();

    python::bindVolumeStatistics();
    python::bindVolume();
    python::bindVolumePiece();
    python::bindSeismicVolume();
    python::bindRandomLineSection();
    python::bindRandomLine();

    python::bindApplicationInterface();

    python::bindUtils();
    python::bindSegy();

    python::nameCalledEnumerations(bp::scope().ptr());
}
