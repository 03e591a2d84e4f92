#pragma once

#include "module/gui/Conversion.h"

#include <cmath>

/// Numbers of sliders and spin boxes that Qt takes without a word and then ignores or shows as nonsense. A setter that
/// has one of these types refuses them with ValueError.
namespace python {

/// Neither infinite nor not-a-number.
struct FiniteNumber
{
    double value;
};

/// How far one key press goes: not negative. `Number` is int or FiniteNumber.
template <typename Number>
struct Step
{
    Number value;
};

template <>
struct Argument<FiniteNumber>
{
    static FiniteNumber from(PyObject* object, const char* where)
    {
        const double value = Argument<double>::from(object, where);
        if (!std::isfinite(value))
            raise(PyExc_ValueError, "%s, the value must be finite", where);
        return {value};
    }
};

template <typename Number>
struct Argument<Step<Number>>
{
    static Step<Number> from(PyObject* object, const char* where)
    {
        const Number step = Argument<Number>::from(object, where);
        if (plain(step) < 0)
            raise(PyExc_ValueError, "%s, a step can not be negative", where);
        return {step};
    }

private:
    static int plain(int number) { return number; }
    static double plain(FiniteNumber number) { return number.value; }
};

/// Setters for property<>() that refuse such numbers and call the Qt one.
template <auto setter, typename Q>
void setFinite(Q& widget, FiniteNumber number)
{
    (widget.*setter)(number.value);
}

template <auto setter, typename Q>
void setStep(Q& widget, Step<int> step)
{
    (widget.*setter)(step.value);
}

template <auto setter, typename Q>
void setFiniteStep(Q& widget, Step<FiniteNumber> step)
{
    (widget.*setter)(step.value.value);
}

} // namespace python
