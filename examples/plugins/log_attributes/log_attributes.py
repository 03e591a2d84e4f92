"""Attributes of a well log in a moving window, and the files they come from and go to.

Depths are in metres. A sample without a value is NaN and takes no part. Files are Log ASCII Standard 2.0 (Canadian Well
Logging Society, 1992), not wrapped.
"""
import contextlib
import math
import os

MEAN, RMS, DEVIATION = "Mean", "RMS", "Standard deviation"
SHORT = {MEAN: "MEAN", RMS: "RMS", DEVIATION: "SDEV"}


class Log:
    """depths: list of float; curves: values by mnemonic, as many as depths; units: by mnemonic."""

    def __init__(self, depths, curves, units):
        self.depths, self.curves, self.units = depths, curves, units


def read_las(path):
    """Raises OSError, and ValueError that tells what is wrong."""
    section, names, units, columns, null = "", [], {}, [], None
    with open(path, encoding="utf-8", errors="replace") as file:
        for number, line in enumerate(file, 1):
            line = line.strip()
            if not line or line.startswith("#"):
                continue
            if line.startswith("~"):
                section = line[1:2].upper()
                columns = [[] for _ in names] if section == "A" else columns
            elif section in ("W", "C"):
                mnemonic, _, rest = line.partition(".")
                mnemonic = mnemonic.strip()
                unit, _, value = rest.partition(":")[0].partition(" ")
                if section == "C":
                    names.append(mnemonic)
                    units[mnemonic] = unit
                elif mnemonic.upper() == "NULL":
                    null = float(value)
            elif section == "A":
                try:
                    row = [float(field) for field in line.split()]
                except ValueError:
                    row = []
                if len(row) != len(names) or not row:
                    raise ValueError("line %d does not hold %d numbers" % (number, len(names)))
                for column, value in zip(columns, row):
                    column.append(math.nan if value == null else value)
    if len(names) < 2 or not columns or not columns[0]:
        raise ValueError("it holds no curves")
    depths = columns[0]
    if not all(a < b for a, b in zip(depths, depths[1:])):
        raise ValueError("its depths do not increase")
    return Log(depths, dict(zip(names[1:], columns[1:])), units)


def window_attribute(depths, values, attribute, length, indices):
    """The attribute of the samples not further than half of length away, at the samples that indices names in order.
    It works in steps, so that indices can be a progress bar.
    """
    middle = [value for value in values if not math.isnan(value)]
    shift = sum(middle) / len(middle) if middle and attribute != RMS else 0.0  # keeps the differences of sums exact
    counts, sums, squares = [0], [0.0], [0.0]
    for value in values:
        known = not math.isnan(value)
        value = value - shift if known else 0.0
        counts.append(counts[-1] + known)
        sums.append(sums[-1] + value)
        squares.append(squares[-1] + value * value)
    result, first, last = [], 0, 0
    for index in indices:
        depth = depths[int(index)]
        while depths[first] < depth - length / 2:
            first += 1
        while last < len(depths) and depths[last] <= depth + length / 2:
            last += 1
        count = counts[last] - counts[first]
        if not count:
            result.append(math.nan)
            continue
        mean = (sums[last] - sums[first]) / count
        square = max(0.0, (squares[last] - squares[first]) / count)
        result.append({MEAN: mean + shift, RMS: math.sqrt(square),
                       DEVIATION: math.sqrt(max(0.0, square - mean * mean))}[attribute])
    return result


def smooth(values, passes):
    """Passes of the weights 1, 2, 1 over neighbouring samples."""
    for _ in range(passes):
        before = values
        values = []
        for i, middle in enumerate(before):
            near = [(weight, before[j]) for weight, j in ((1, i - 1), (2, i), (1, i + 1))
                    if 0 <= j < len(before) and not math.isnan(before[j])]
            total = sum(weight for weight, _ in near)
            values.append(middle if math.isnan(middle) else sum(weight * value for weight, value in near) / total)
    return values


def write_las(path, log, curve, name, values):
    """The depths with the curve and its attribute; the file appears when it is complete."""
    text = ["~VERSION INFORMATION", " VERS. 2.0 :", " WRAP. NO :", "~WELL INFORMATION", " NULL. -9999.00 :",
            "~CURVE INFORMATION", " DEPT.M :", " %s.%s :" % (curve, log.units[curve]),
            " %s.%s :" % (name, log.units[curve]), "~A"]
    for row in zip(log.depths, log.curves[curve], values):
        text.append(" ".join("%10.2f" % (-9999 if math.isnan(value) else value) for value in row))
    part = path + ".part"
    try:
        with open(part, "w", encoding="utf-8") as file:
            file.write("\n".join(text) + "\n")
        os.replace(part, path)
    except OSError:
        with contextlib.suppress(OSError):
            os.remove(part)
        raise


def points(depths, values, size, low, high):
    """A polyline of an SVG drawing of that size: depth to the right, values upwards."""
    width, height = size
    step = max(1, len(depths) // width)
    span, reach = depths[-1] - depths[0] or 1.0, high - low or 1.0
    return " ".join("%.1f,%.1f" % ((depth - depths[0]) / span * width, height - (value - low) / reach * height)
                    for depth, value in list(zip(depths, values))[::step] if not math.isnan(value))


def drawing(depths, curve, result, colour, size=(420, 110)):
    """Both curves as SVG, for light and dark grounds."""
    known = [value for value in curve + result if not math.isnan(value)] or [0.0]
    lines = "".join('<polyline fill="none" stroke="%s" stroke-width="%g" points="%s"/>'
                    % (stroke, width, points(depths, values, size, min(known), max(known)))
                    for stroke, width, values in (("#9aa1a9", 1, curve), (colour, 2, result)))
    # The margin leaves room for the lines' width.
    return '<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d" viewBox="-2 -2 %d %d">%s</svg>' % (
        size[0] + 4, size[1] + 4, size[0] + 4, size[1] + 4, lines)
