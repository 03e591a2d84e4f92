#include "module/ModuleFrame.h"

#include "module/Registrations.h"

BOOST_PYTHON_MODULE(strativo_python)
{
    python::registerModule<python::Extent::Whole>();
}
