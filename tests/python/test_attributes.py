"""Views of attributes, values without an object, and collections of objects."""

import copy

import numpy as np
import pytest

import qzdescriptor as qz


@pytest.fixture
def sheet(registry):
    """Panels have a name, two thicknesses with help, a table of loads, and a place for a menu."""
    shown = dict(help_path="sizes/skin")
    registry.insert("Panel", parent="Part")
    registry.insert_attribute("Panel", "T", qz.Definition("Thickness", float, default=1.0, above=0, units=("L", "mm"), **shown))
    registry.insert_attribute("Panel", "U", qz.Definition("", float, **shown), secondary=17)
    registry.insert_attribute("Panel", "loads", qz.Definition("Loads", qz.Tabular, visible=False))
    registry.set_tabular_definition("Panel", "loads", qz.TabularDefinition("Loads", [
        qz.Definition("time", float, default=0.5, at_least=0), qz.Definition("phase", str)]))
    registry.insert_attribute("Panel", "tags", qz.Definition("Tags", list[str]))
    return registry


class Panel(qz.CustomObject):
    """Keeps its values in Python."""

    def __init__(self, session, entity):
        super().__init__(session, entity)
        self.values = {}

    def read_value(self, attribute):
        return self.values.get(str(attribute))

    def write_value(self, attribute, value):
        self.values[str(attribute)] = value


@pytest.fixture(params=["object", "custom object", "content"])
def panel(request, sheet):
    """One panel in every form that can be written to."""
    session = sheet.session("wing")
    if request.param == "object":
        return session.create("Panel")
    return Panel(session, qz.Entity("Panel", 9)) if request.param == "custom object" else qz.Content(sheet.members("Panel"))


def test_views_read_and_write(panel):
    thickness = qz.Attribute(panel, "T")
    assert (thickness.value, thickness.default, thickness.is_set, thickness.is_at_default) == (1.0, 1.0, False, True)
    thickness.value = 2
    assert panel["T"] == 2.0 and thickness.is_set and not thickness.is_at_default and thickness.text() == "2"
    assert "VALUE > 0" in thickness.test(-1) and "float" in thickness.test("x") and thickness.test(3) == ""
    for refused in (-1, "x", qz.Value(1, int)):
        with pytest.raises(qz.Refused):
            thickness.value = refused
    thickness.set_text("2.5")
    thickness.value = qz.Value(thickness.value + 1, float)
    assert panel["T"] == 3.5
    thickness.reset()
    assert panel["T"] == 1.0 and thickness.is_at_default
    thickness.display_status = 0
    assert thickness.display_status == 0 and qz.Attribute(panel, 17) == qz.Attribute(panel, "U")
    thickness.allowables = qz.Allowables(float, default=6.0, at_least=5)
    assert thickness.allowables.bounds == [(">=", 5.0)] and thickness.test(4) != ""
    with pytest.raises(KeyError):
        qz.Attribute(panel, "V")


def test_views_describe(sheet):
    members = sheet.members("Panel")
    thickness, other = members["T"], members["U"]
    assert (thickness.name, thickness.display_name, other.display_name) == ("T", "Thickness", "U")
    assert (thickness.dimensionality(), thickness.dimensionality_display_name(7)) == ("L", "")
    assert thickness.kind == qz.AttributeKind.VALUE and other.secondary_identifier == qz.Identifier(17)
    assert thickness.is_read_only and thickness.handle == sheet.find_attribute("Panel", "T") == thickness.index + 1
    with pytest.raises(qz.Refused, match="only be read"):
        thickness.value = 2.0
    assert members.is_inherited("name") and not members.is_inherited("T") and members.parent_name == "Part"
    helper = qz.AttributeHelper(members)
    assert [view.name for view in helper] == ["name", "T", "U", "loads", "tags"] and helper.find("X") is None
    assert [(group.name, [view.name for view in group]) for group in helper.categories()] == [
        ("", ["name", "tags"]), ("sizes", ["T", "U"])]
    assert [group.name for group in helper.categories(lambda view: view.type.basic.name)] == ["STRING", "DOUBLE"]
    with pytest.raises(ZeroDivisionError):
        helper.categories(lambda view: 1 / 0)


def test_tables_are_checked_by_their_columns(panel):
    loads = qz.TabularAttribute(qz.Attribute(panel, "loads"))
    assert (len(loads), loads.column_count, loads.find_column("phase")) == (0, 2, 1)
    loads.insert_rows(0, 3)
    loads[1, 0], loads[2, 1] = 2, "ramp"
    assert loads.test_cell((0, 0), -1) != "" and loads.test_cell((0, 0), "x") != "" and loads.test_cell((0, 0), 1) == ""
    with pytest.raises(qz.Refused, match=">= 0"):
        loads[0, 0] = -1
    with pytest.raises(IndexError):
        loads[3, 0]
    loads.remove_rows([0])
    assert panel["loads"].to_dict(["t", "p"])["t"].tolist() == [2.0, 0.5] and panel["loads"][1, 1] == "ramp"
    with pytest.raises(qz.Refused, match="no table"):
        qz.TabularAttribute(qz.Attribute(panel, "T"))


def test_listeners_hear_of_what_views_write(sheet):
    session = sheet.session("wing")
    panel, heard = session.create("Panel"), []
    session.on_event(lambda event: heard.append(str(event.identifier)))
    qz.Attribute(panel, "T").value = 5
    qz.TabularAttribute(qz.Attribute(panel, "loads")).insert_rows(0)
    assert heard == ["T", "loads"]


def test_contents_are_drafts(sheet):
    draft, other = (qz.Content(sheet.members("Panel")) for _ in range(2))
    draft["T"], other["T"], other["tags"] = 2, 3, ["a"]
    assert draft != other and copy.deepcopy(other) == other
    with pytest.raises(qz.Refused):
        draft.append(other, qz.Content.AppendRule.FAIL)
    draft.append(other)
    assert draft["T"] == 2.0 and draft["tags"] == ["a"]
    draft.append(other, qz.Content.AppendRule.EXTEND)
    assert draft["tags"] == ["a", "a"]
    view = qz.Attribute(draft, "T")
    view.definition = qz.Definition("Own", float, default=9.0, above=8)
    assert (view.display_name, draft["T"], other["T"]) == ("Own", 9.0, 3.0)
    view.restore_definition()
    draft.set_unchecked("T", -5)
    assert draft["T"] == -5.0
    del draft["T"]
    assert draft["T"] == 1.0 and not view.is_set
    panel = sheet.session("wing").create("Panel")
    panel["T"] = 7
    kept = panel.copy_content()
    panel["T"] = 8
    assert kept["T"] == 7.0


def test_views_know_the_end(sheet):
    session = sheet.session("wing")
    panel = session.create("Panel")
    view = qz.Attribute(panel, "T")
    session.delete(panel)
    for use in (lambda: view.value, lambda: view.set_text("1"), lambda: view.name, lambda: view.definition):
        with pytest.raises(qz.Ended):
            use()
    members = sheet.members("Panel")
    draft = qz.Content(members)
    del sheet, session, panel, view
    assert draft["T"] == 1.0 and members["T"].value == 1.0  # they keep their registry


def test_collections_hold_objects(session):
    plies = [session.create("Ply") for _ in range(4)]
    chosen = qz.MetaobjectCollection(session, [plies[2], plies[0].entity])
    chosen.add(session.create("Laminate"))
    for refused in (plies[2], qz.Entity("Ply", 99)):
        with pytest.raises(qz.Refused):
            chosen.add(refused)
    assert list(chosen)[:2] == [plies[2], plies[0]] and chosen[-1].type == qz.EntityFullType("Laminate")
    assert chosen.ids("Ply").tolist() == [3, 1] and chosen.ids("Ply").dtype == np.uint32
    assert chosen.lists.total == len(chosen) == 3 and plies[0] in chosen and plies[1] not in chosen
    session.delete(plies[2])
    assert [entity.id for entity in chosen.entities] == [1, 1]
    chosen.remove(plies[0])
    with pytest.raises(qz.Refused):
        chosen.remove(plies[0])
    with pytest.raises(IndexError):
        chosen[1]
