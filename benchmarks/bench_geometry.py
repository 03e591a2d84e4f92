"""The hot operations of the geometry values against a hand-written C type and a plain Boost.Python class."""
import harness

import geometry_ctype
import geometry_plainboost
import strativo_python

MODULES = {"strativo_python": strativo_python, "C type": geometry_ctype, "Boost.Python": geometry_plainboost}


def names(module):
    return {"V": module.vec3, "u": module.vec3(1.0, 2.0, 3.0), "w": module.vec3(4.0, 5.0, 6.0), "m": module.mat4(1.5)}


bench = harness.Bench("Geometry values", reference="C type", subject="strativo_python", limit=1.3)
spaces = {who: names(module) for who, module in MODULES.items()}
for statement in ("v.x", "v.x = 1.5", "v[1]", "v + w", "v += w", "v * 2.5", "v * w", "m * v", "V(1.0, 2.0, 3.0)", "V()"):
    bench.case(statement, {who: (statement, space, "v = u") for who, space in spaces.items()})

# What has no counterpart in the small comparison types.
own = dict(spaces["strativo_python"], n=strativo_python.mat4(2.5), r=strativo_python.Rect2D())
for statement in ("m * n", "m[1]", "m[1][2]", "v.normalize()", "v.length", "r.width", "r.intersects(r)"):
    bench.case(statement, {"strativo_python": (statement, own, "v = u")})
bench.finish()
