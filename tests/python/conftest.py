import sys

import pytest

import qzdescriptor as qz


@pytest.fixture
def registry():
    """Parts have a name; plies and laminates are parts."""
    registry = qz.Registry()
    registry.insert("Part")
    registry.insert_attribute("Part", "name", qz.Definition("Name", str))
    registry.insert("Ply", parent="Part")
    registry.insert_attribute("Ply", "T", qz.Definition("Thickness", float, default=1.0, above=0, units="LENGTH"))
    registry.insert_attribute("Ply", "material", qz.Definition("Material", str, values=["steel", "wood"], default="wood"))
    registry.insert("Laminate", parent="Part")
    registry.insert_attribute("Laminate", "plies", qz.Definition("Plies", list[qz.Entity]))
    return registry


@pytest.fixture
def session(registry):
    return registry.session("wing")


@pytest.fixture
def reports(monkeypatch):
    """What was reported: the failures of callbacks."""
    told = []
    monkeypatch.setattr(sys, "unraisablehook", lambda said: told.append(f"{said.exc_type.__name__}: {said.exc_value}"))

    class Reports:
        def take(self):
            text = "\n".join(told)
            told.clear()
            return text

    return Reports()
