"""A self-describing object model for engineering applications, in Python.

Metaclasses in a `Registry` describe every kind of object, a `Session` holds the objects:

    registry = Registry()
    registry.insert("Ply")
    registry.insert_attribute("Ply", "T", Definition("Thickness", float, default=1.0, above=0))
    ply = registry.session("wing").create("Ply")
    ply["T"] = 2.5
"""

from collections.abc import Mapping as _Mapping

from . import _core
from ._core import *  # noqa: F401,F403

__all__ = sorted(name for name in vars(_core) if not name.startswith("_"))

for _bag in (_core.EntityListBag, _core.FormulaBag):
    _Mapping.register(_bag)
for _name in __all__:
    if isinstance(vars(_core)[_name], type):
        vars(_core)[_name].__module__ = __name__
