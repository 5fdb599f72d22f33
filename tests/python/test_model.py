"""Metaclasses, sessions, objects: what they do, what they refuse, and what is left of them when they end."""

import gc
import subprocess
import sys

import numpy as np
import pytest

import qzdescriptor as qz


def test_values_are_set_by_the_declared_type(session):
    ply = session.create("Ply")
    assert ply["T"] == 1.0
    ply["T"] = 2
    assert ply["T"] == 2.0 and isinstance(ply["T"], float) and ply.text("T") == "2"
    for refused, message in [(-1, "VALUE > 0"), ("thick", "float is expected")]:
        with pytest.raises(qz.Refused, match=message):
            ply["T"] = refused
    with pytest.raises(qz.Refused):
        ply["material"] = "glass"
    ply.set_text("T", "0.25")
    assert (ply["T"], ply["material"]) == (0.25, "wood")
    with pytest.raises(KeyError):
        ply["thickness"]
    with pytest.raises(KeyError):
        ply["thickness"] = 1.0
    assert [str(name) for name in ply] == ["name", "T", "material"]
    assert ply.definition("T").units.dimensionality() == "LENGTH" and "T" in ply and "U" not in ply


def test_allowables_of_one_object(session):
    ply, other = session.create("Ply"), session.create("Ply")
    ply.set_allowables("T", qz.Allowables(float, default=5.0, at_least=4))
    assert ply["T"] == 5.0 and other["T"] == 1.0
    assert ply.allowables("T").bounds == [(">=", 4.0)]


def test_definitions_say_what_they_were_told():
    definition = qz.Definition("T", int, values={"two": 2, "four": 4}, default=4, editable=False, units=("L", "Length"),
                               specification=qz.Definition.Specification.REQUIRED, description="d")
    assert definition.allowables.values == [(2, "two"), (4, "four")] and definition.default == 4
    assert definition.is_specified and not definition.editable and definition.units.display_name() == "Length"
    allowed = definition.allowables
    assert allowed.test(2) and not allowed.test(3) and allowed.failure_message
    assert qz.Allowables.from_text(int, "LIST(2, 4) DEFAULT(4)") == qz.Allowables(int, 4, values=[2, 4])
    for wrong in [{"type": int, "above": 0}, {"type": str, "above": "a", "default": "b"},
                  {"type": int, "values": [1], "default": 2}, {"type": int, "values": [1], "above": 0, "default": 1},
                  {"type": int, "default": 1.5}]:
        with pytest.raises(qz.Refused):
            qz.Definition("D", **wrong)


def test_ownership(registry, session):
    registry.set_ownership("Ply", "Laminate", "plies")
    assert len(registry.ownership("Ply", "Laminate")) == 1
    assert registry.owners("Ply") == {registry.find("Laminate"): registry.ownership("Ply", "Laminate")}
    assert registry.owner_attributes("Laminate") == [qz.Identifier("plies")]
    laminate = session.create("Laminate")
    plies = [session.create("Ply", owner=laminate, attribute="plies") for _ in range(3)]
    assert plies[0].owner == laminate and session.owner(plies[1]) == (laminate.entity, qz.Identifier("plies"))
    assert session.owned(laminate, "plies")["Ply"].ids.tolist() == [ply.id for ply in plies]
    with pytest.raises(qz.Refused):
        session.create("Laminate", owner=plies[0])
    session.delete(laminate)
    assert [ply.is_alive for ply in plies] == [False] * 3 and session.count("Ply") == 0


def test_queries_against_python(session):
    rng = np.random.default_rng(5)
    for i, thickness in enumerate(rng.uniform(0.1, 9, 200), 1):
        session.create("Ply", id=i)["T"] = thickness
    found = session.entities("Ply", "T > 3 and T <= 6")
    expected = [ply.id for ply in session.objects("Ply") if 3 < ply["T"] <= 6]
    assert 0 < len(expected) < 200 and found.ids.tolist() == expected
    assert session.collect_instances("Part", "").total == 200 and len(session.entities("Part")) == 0
    assert session.check_query("Ply", "T >") != "" and session.check_query("Ply", "T > 1") == ""
    with pytest.raises(qz.Refused, match="at 11"):
        session.entities("Ply", "T = 1 and or")
    with pytest.raises(qz.Refused, match="no attribute"):
        session.entities("Ply", "thicknes > 1")
    assert "is false" in session.explain(session.objects("Ply")[0], "T > 100")


def test_names_and_references(registry, session):
    ply = session.create("Ply")
    ply["name"] = "root \udcff ä"
    assert ply.name == "root \udcff ä"
    ply["name"] = "root"
    assert session.find("Ply", "root") == ply and session.find("Ply", "tip") is None
    registry.insert_attribute("Laminate", "first", qz.Definition("First", qz.Entity))
    laminate = session.create("Laminate")
    laminate["first"] = ply
    assert laminate["first"] == ply.entity and session.referred(laminate)["Ply"].ids.tolist() == [ply.id]


def test_handles_of_what_has_ended_raise(registry, session):
    ply = session.create("Ply")
    session.delete(ply)
    assert not ply.is_alive and "gone" in repr(ply) and ply.id > 0 and session.get(ply.entity) is None
    for use in [lambda: ply["T"], lambda: ply.__setitem__("T", 1.0), lambda: ply.invoke("x"), lambda: ply.name,
                lambda: list(ply)]:
        with pytest.raises(qz.Ended):
            use()
    ply = session.create("Ply")
    registry.remove_session(session)
    for use in [lambda: ply["T"], lambda: session.name, lambda: session.create("Ply"), lambda: session.registry,
                lambda: session.on_event(print), lambda: registry.remove_session(session)]:
        with pytest.raises(qz.Ended):
            use()
    again = registry.session("wing")
    assert again != session and len(again.entities("Ply")) == 0


def test_a_registry_ends_its_sessions():
    registry = qz.Registry()
    registry.insert("X")
    session = registry.session("s")
    target = session.create("X")
    assert session.registry is registry
    ended = []
    session.on_end(lambda: ended.append((session.name, target.is_alive)))
    del registry
    gc.collect()
    assert ended == [("s", True)] and not session.is_alive and not target.is_alive


def test_events_reach_functions(session, reports):
    events = []
    connection = session.on_event(lambda event: events.append((event.event_type, str(event.identifier), event.ids)))
    failing = session.on_event(lambda event: 1 / 0)
    ply = session.create("Ply", id=4)
    assert "ZeroDivisionError" in reports.take()
    failing.disconnect()
    ply["T"] = 2.5
    session.delete(ply)
    assert [(kind, ids) for kind, _, ids in events] == [
        (qz.EVENT_CREATED, [4]), (qz.EVENT_CHANGED, [4]), (qz.EVENT_DELETED, [4])]
    assert events[1][1] == "T"
    connection.disconnect()
    session.create("Ply")
    assert len(events) == 3 and not connection.is_connected and reports.take() == ""


def test_scripts_print_where_python_prints(registry, session, capsys):
    import sys
    sys.modules["printing"] = module = type(sys)("printing")
    module.tell = lambda ply: print("told by", ply.entity)
    module.fail = lambda ply: 1 // 0
    for name in ("tell", "fail"):
        registry.insert_action("Ply", name, qz.ActionDefinition.script(name, name, module="printing"))
    qz.set_script_registry(registry)
    try:
        ply = session.create("Ply")
        ply.invoke("tell")
        assert capsys.readouterr().out == "told by Entity('Ply', 1)\n"
        with pytest.raises(qz.Refused, match="Callback execution failed"):
            ply.invoke("fail")
        assert "ZeroDivisionError" in capsys.readouterr().err
    finally:
        qz.set_script_registry(None)
        del sys.modules["printing"]


def test_actions_call_python(registry, session, reports):
    def thicken(ply):
        ply["T"] = ply["T"] * 2
        return "thicker"

    def refuse(ply):
        raise qz.Refused("not this one")

    registry.insert_action("Ply", "thicken", qz.ActionDefinition("Thicken", thicken))
    registry.insert_action("Ply", "refuse", qz.ActionDefinition("Refuse", refuse))
    registry.insert_action("Ply", "fail", qz.ActionDefinition("Fail", lambda ply: ply["nothing"]))
    registry.insert_action("Ply", "choosy", qz.ActionDefinition("Choosy", thicken, enabled_test=lambda ply: ply["T"] > 3))
    ply = session.create("Ply")
    assert ply.invoke("thicken") == "thicker" and ply["T"] == 2.0
    with pytest.raises(qz.Refused, match="not this one"):
        ply.invoke("refuse")
    assert reports.take() == ""
    with pytest.raises(qz.Refused, match="nothing"):
        ply.invoke("fail")
    assert "KeyError" in reports.take()
    assert not ply.is_action_enabled("choosy")
    ply["T"] = 4
    assert ply.is_action_enabled("choosy") and [str(action) for action in ply.actions][0] == "thicken"


def test_configurations_and_tables_in_the_registry(registry):
    beam = registry.insert("Beam", version="2.1.0", config_usage=qz.ConfigUsage.SUBMEMBER)
    basic = registry.insert_config("Beam", "basic")
    registry.insert_attribute("Beam", "A", qz.Definition("Area", float), configs=[basic])
    shear = registry.insert_attribute("Beam", "K", qz.Definition("Shear", float), secondary=17)
    assert registry.find_attribute("Beam", "K", basic) == 0 and registry.find_attribute(beam, 17) == shear
    assert registry.insert_attributes_into_config("Beam", basic, [shear]) == 1
    assert [str(name) for name in registry.attributes("Beam", basic)] == ["A", "K"]
    assert registry.configs(beam) == [basic] and registry.config_usage(beam) == qz.ConfigUsage.SUBMEMBER
    assert (registry.config_name(beam, basic), registry.config_number(beam, basic)) == ("basic", 1)
    assert registry.find_config(beam, 1) == registry.find_config(beam, "basic") == basic
    assert registry.identifier(beam, shear, secondary=True) == qz.Identifier(17)
    assert registry.members(beam, basic)["K"].handle == 2 and registry.members(beam)["K"].handle == shear
    assert str(registry.version("Beam")) == "2.1.0" and registry.check_parent("Ply", "Part")
    assert registry.children("Part") == [registry.find("Ply"), registry.find("Laminate")]
    with pytest.raises(qz.Refused):
        registry.insert("Beam")
    with pytest.raises(KeyError):
        registry.insert_attribute("Bar", "A", qz.Definition("Area", float))


def test_what_interfaces_want_to_know():
    menu = qz.DefinitionContextMenu()
    create, edit = qz.ContextMenuType.CREATE, qz.ContextMenuType.EDIT
    menu.set_status(7, create | edit, True, valid_entity_type=True)
    menu.set_status(7, qz.ContextMenuType.SELECT, False)
    assert menu.status(7, edit, True) is True and menu.status(7, edit) is None
    assert menu.status(7, qz.ContextMenuType.SELECT) is False and menu.status(8, edit, True) is None
    params = qz.DefinitionUserParams()
    params.context_menu, params.default_display_status = menu, 0
    definition = qz.Definition("T", float, user_params=params)
    assert definition.user_params.context_menu == menu and definition.user_params == params
    place = qz.CardPosition(0, 24, 8, "thickness", decorator="mm", decorator_kind=int(qz.CardPosition.Decorator.AFTER))
    assert place.is_valid and not place.for_unstructured and not qz.CardPosition().is_valid
    assert (place.row, place.position, place.length, place.comment, place.decorator) == (0, 24, 8, "thickness", "mm")
    with pytest.raises(ValueError):
        place.length = 256


def test_lists_of_allowed_values_can_be_changed():
    allowed = qz.Allowables(int, values={"two": 2, "four": 4, "six": 6}, default=6)
    allowed.add(8)
    allowed.remove(0)
    allowed.rename(0, "vier")
    assert allowed.values == [(4, "vier"), (6, "six"), (8, "8")] and allowed.default_index == 1
    allowed.default_index = 2
    part = qz.Allowables(int, values=[4, 8])
    assert allowed.default == 8 and (allowed.valid_subset(part), part.valid_subset(allowed)) == (0, -1)
    part.take(allowed, default=False)
    assert part.values == allowed.values
    for refused in (lambda: allowed.add("x"), lambda: qz.Allowables(int, 3).add(4), lambda: part.take(qz.Allowables(3.0.__class__, 1.0))):
        with pytest.raises(qz.Refused):
            refused()
    types = qz.Allowables(qz.EntityFullType, values=[qz.EntityFullType("Shell")])
    types.add_sub_type("Shell", 1, "quad")
    assert types.sub_types("Shell", 1) == ["quad"] and types.sub_types("Beam", 1) == []


def test_events_can_be_held_back(session):
    heard = []
    session.on_event(lambda event: heard.append(event.ids))
    session.buffer_start()
    session.create("Ply", id=3)
    assert heard == []
    session.buffer_stop()
    session.flush()
    assert heard == [[3]]


def test_tables():
    pandas = pytest.importorskip("pandas")
    columns = {"t": np.array([0.0, 0.5, 1.0]), "phase": ["rest", "ramp", "hold"], "on": [True, False, True],
               "n": np.array([1, 2, 3], dtype=np.uint32), "at": [(1.0, 2.0, 3.0)] * 3,
               "node": qz.EntityList("GRID", [7, 8, 9])}
    table = qz.Tabular(columns)
    back = table.to_dict(columns)
    for name, column in columns.items():
        assert np.array_equal(np.asarray(back[name]), np.asarray(column)), name
    assert back["n"].dtype == np.uint32 and back["node"].type == qz.EntityFullType("GRID")
    assert table[1, 1] == "ramp" and table[-1, 5] == qz.Entity("GRID", 9)
    table[0, 0] = 5
    assert table[0, 0] == 5.0
    for place, data in [((0, 0), "x"), ((0, 5), qz.Entity("Ply", 1)), ((0, 2), 1)]:
        with pytest.raises(qz.Refused):
            table[place] = data
    for place in [(3, 0), (0, 6), (-4, 0)]:
        with pytest.raises(IndexError):
            table[place]
    frame = table.to_pandas(columns)
    assert list(frame.columns) == list(columns) and frame["t"].tolist() == [5.0, 0.5, 1.0]
    assert qz.Tabular(frame[["t", "phase", "on"]]) == qz.Tabular({name: back[name] if name != "t" else [5.0, 0.5, 1.0]
                                                                  for name in ("t", "phase", "on")})
    assert len(table.take([0, 2])) == 2
    with pytest.raises(qz.Refused):
        qz.Tabular({"a": [object()]})


def test_menus_formulas_and_buffers(registry, session):
    builder = qz.DataOperationListBuilder()
    builder.insert_list("Display", "display")
    builder.insert_operation("Show", qz.DataOperation.Operation.SHOW, "display")
    builder.insert_function("Weigh", "WeighParts", "display")
    with pytest.raises(qz.Refused):
        builder.insert_separator("nowhere")
    menu = builder.build()
    assert [entry.display_name for entry in menu[0].entries] == ["Show", "Weigh"]
    registry.set_data_operations("Part", menu)
    assert session.create("Ply").data_operations == menu
    formula = qz.Formula.from_text("GRID: +range(1 100) -ids(7)")
    assert formula.contains(8) and not formula.contains(7) and str(formula) == "GRID: +range(1 100) -ids(7)"
    assert bytes(qz.MemoryBuffer(b"a\0b")) == b"a\0b" and len(qz.MemoryBuffer()) == 0


def test_the_script_session(registry, session):
    from qz.mdi.isession import Session
    with pytest.raises(RuntimeError, match="no session"):
        Session()
    qz.set_script_registry(registry)
    try:
        assert Session() == session == Session("wing") and qz.get_script_registry() is registry
        assert Session("tail").name == "tail" and Session().get(qz.Entity("Ply", 99)) is None
    finally:
        qz.set_script_registry(None)
    with pytest.raises(RuntimeError, match="set_script_registry"):
        Session("wing")


def test_python_ends_with_everything_alive():
    script = ("import sys; sys.path.insert(0, sys.argv[1]); import test_derived as t, qzdescriptor as qz\n"
              "registry = t.Tables(); registry.insert('Row'); session = registry.session('a'); row = session.create('Row')\n"
              "session.on_end(print); session.on_event(print); plain = registry.session('plain'); plain.on_end(print)\n"
              "qz.set_script_registry(registry)\n")
    done = subprocess.run([sys.executable, "-c", script, __file__.rpartition("/")[0]], capture_output=True, text=True)
    assert (done.returncode, done.stderr) == (0, "")
