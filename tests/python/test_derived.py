"""Registries, sessions and objects that are written in Python."""

import gc
import weakref

import pytest

import qzdescriptor as qz


class Row(qz.CustomObject):
    def __init__(self, session, entity, values):
        super().__init__(session, entity)
        self.values = values

    def read_value(self, attribute):
        return self.values.get(str(attribute))

    def write_value(self, attribute, value):
        if value == 13:
            raise qz.Refused("no thirteens")
        self.values[str(attribute)] = value

    def read_name(self):
        return f"row {self.entity.id}"


class Rows(qz.CustomSession):
    def __init__(self, name, registry):
        super().__init__(name, registry)
        self.rows = {}

    def create_entity(self, type, owner, owner_attribute):
        entity = qz.Entity(type, len(self.rows) + 1)
        self.rows[entity] = Row(self, entity, {})
        return entity

    def delete_entity(self, entity):
        if self.rows.pop(entity, None) is None:
            raise qz.Refused("no such row")

    def get_object(self, entity):
        return self.rows.get(entity)

    def list_entities(self, type, query):
        return [entity.id for entity in self.rows if entity.type == type]


class Tables(qz.Registry):
    def create_session(self, name):
        if name == "broken":
            raise ValueError("no session for you")
        return Rows(name, self) if name != "plain" else super().create_session(name)


@pytest.fixture
def tables():
    registry = Tables()
    registry.insert("Row")
    registry.insert_attribute("Row", "T", qz.Definition("T", float, default=1.5, above=0))
    registry.insert_attribute("Row", "tags", qz.Definition("Tags", list[str]))
    return registry


def test_a_session_in_python_is_one_like_others(tables):
    session = tables.session("a")
    assert type(session) is Rows and tables.session("a") is session
    rows = [session.create("Row") for _ in range(4)]
    assert rows[0] is session.get(qz.Entity("Row", 1)) and rows[0]["T"] == 1.5
    for i, row in enumerate(rows):
        row["T"] = i + 1
    rows[1]["tags"] = ["x", "y"]
    assert rows[1]["tags"] == ["x", "y"] and rows[1].text("T") == "2" and rows[1].name == "row 2"
    assert session.entities("Row", "T > 1.5 and T < 4").ids.tolist() == [2, 3]
    with pytest.raises(qz.Refused, match="VALUE > 0"):
        rows[0]["T"] = -1
    with pytest.raises(qz.Refused, match="no thirteens"):
        rows[0]["T"] = 13
    session.delete(rows[0])
    assert session.get(qz.Entity("Row", 1)) is None
    with pytest.raises(qz.Refused, match="no such row"):
        session.delete(qz.Entity("Row", 1))
    assert isinstance(tables.session("plain"), qz.Session) and not isinstance(tables.session("plain"), Rows)


def test_failures_in_overrides_are_reported(tables, reports):
    assert tables.session("broken") is None and "no session for you" in reports.take()
    session = tables.session("a")
    row = session.create("Row")
    row.values = None  # every read fails from now on
    assert row["T"] is None and "AttributeError" in reports.take()
    assert session.entities("Row", "T > 0").ids.tolist() == []
    del row
    reports.take()
    session.get_object = lambda entity: 5
    assert session.get(qz.Entity("Row", 1)) is None and "cast" in reports.take()

    class Bare(qz.CustomSession):
        pass

    bare = Bare("bare", tables)
    with pytest.raises(qz.Refused, match="could not be created"):
        bare.create("Row")
    assert bare.get(qz.Entity("Row", 1)) is None and "NotImplementedError" in reports.take()
    with pytest.raises(qz.Refused, match="of that name"):
        Bare("bare", tables)
    assert bare.is_alive


def test_everything_is_freed_once(tables):
    session = tables.session("a")
    row = session.create("Row")
    watched = [weakref.ref(session), weakref.ref(row), weakref.ref(tables)]
    ended = []
    session.on_end(lambda: ended.append(True))
    tables.remove_session(session)
    assert ended == [True] and not session.is_alive and not row.is_alive
    with pytest.raises(qz.Ended):
        session.create("Row")
    del session, row
    gc.collect()
    assert [watch() is None for watch in watched] == [True, True, False]


def test_hooks_cannot_end_their_session_while_it_is_asked(tables, reports):
    class Fleeting(Rows):
        def end(self, *_):
            tables.remove_session(self)

        delete_entity = get_object = create_entity = list_entities = end

    session = Fleeting("read", tables)
    assert len(session.entities("Row", "T > 1")) == 0 and "afterwards" in reports.take()
    assert session.get(qz.Entity("Row", 1)) is None and "afterwards" in reports.take()
    for use in [lambda: session.create("Row"), lambda: session.delete(qz.Entity("Row", 1))]:
        with pytest.raises(qz.Refused, match="end it afterwards"):
            use()
    assert session.is_alive
    session.end()
    assert not session.is_alive


class Told(qz.CustomObject):
    """Says by itself what it is asked, or fails where `fails` says so."""

    fails = ()

    def tell(self, what, answer):
        if what in self.fails:
            raise ValueError(f"{what} fails")
        return answer

    def read_value(self, attribute):
        return self.tell("value", 2.5 if attribute == qz.Identifier("T") else None)

    def write_value(self, attribute, value):
        self.tell("write", None)

    def list_attributes(self):
        return self.tell("attributes", super().list_attributes()[:1])

    def list_actions(self):
        return self.tell("actions", ["own"])

    def read_action(self, action):
        return self.tell("action", qz.ActionDefinition("Own", lambda row: f"done {row.id}"))

    def read_action_enabled(self, action):
        return self.tell("enabled", True)

    def read_action_visible(self, action):
        return self.tell("visible", not super().read_action_visible(action))

    def run_action(self, action):
        return self.tell("run", super().run_action(action) + "!")

    def read_definition(self, attribute):
        definition = super().read_definition(attribute)
        definition.display_name = self.tell("definition", "Own")
        return definition

    def read_allowables(self, attribute):
        return self.tell("allowables", qz.Allowables(float, 4.0))

    def read_text(self, attribute, format):
        return self.tell("text", f"<{super().read_text(attribute, format)}>")

    def write_text(self, attribute, text, format):
        self.tell("set_text", None)

    def read_display_status(self, attribute):
        return self.tell("status", 1)

    def read_owner(self):
        return self.tell("owner", (qz.Entity("Row", 1), "T"))

    def read_data_operations(self):
        return self.tell("menu", qz.DataOperationList([qz.DataOperation("Own", "f")]))

    def read_is_valid(self):
        return self.tell("valid", False)


# What is asked, what the object says, and what is said in its place when it fails; None stands for a refusal.
ASKED = {
    "value": (lambda row: row["T"], 2.5, 1.5), "attributes": (lambda row: len(row), 1, 2),
    "actions": (lambda row: len(row.actions), 1, 0), "action": (lambda row: row.invoke("own"), "done 5!", None),
    "enabled": (lambda row: row.is_action_enabled("own"), True, True),
    "visible": (lambda row: row.is_action_visible("own"), False, True), "run": (lambda row: row.invoke("own"), "done 5!", None),
    "definition": (lambda row: row.definition("T").display_name, "Own", "T"),
    "allowables": (lambda row: row.allowables("T").default, 4.0, 1.5), "text": (lambda row: row.text("T"), "<2.5>", "2.5"),
    "set_text": (lambda row: row.set_text("T", "no number"), None, None), "write": (lambda row: row.__setitem__("T", 3), None, None),
    "status": (lambda row: row.display_status("T"), 1, 2), "owner": (lambda row: row.owner, None, None),
    "menu": (lambda row: len(row.data_operations), 1, 0)}


@pytest.mark.parametrize("what", ASKED)
def test_an_object_answers_itself_and_cxx_where_it_fails(what, tables, reports):
    ask, told, otherwise = ASKED[what]
    session = Rows("a", tables)
    assert ask(Told(session, qz.Entity("Row", 5))) == told and reports.take() == ""
    row = Told(session, qz.Entity("Row", 5))
    row.fails = (what,)
    try:
        answer = ask(row)
    except qz.Refused:
        answer = None
    assert answer == (None if what == "value" else otherwise)
    assert reports.take().count(f"ValueError: {what} fails") == 1


def test_a_session_may_have_rules_and_queries_of_its_own(tables, reports):
    class Own(Rows):
        def make_entity(self, type, owner, owner_attribute):
            if owner is None:
                raise qz.Refused("not without an owner")
            return super().make_entity(type)

        def find_entities(self, type, query):
            return [7] if query == "T > 1" else super().find_entities(type, query)

    session = Own("own", tables)
    with pytest.raises(qz.Refused, match="not without an owner"):
        session.create("Row")
    row = session.create("Row", owner=qz.Entity("Row", 9))
    assert session.entities("Row").ids.tolist() == [row.id] and session.entities("Row", "T > 1").ids.tolist() == [7]
    session.find_entities = lambda type, query: [row, 9]
    assert session.entities("Row").ids.tolist() == [row.id, 9] and reports.take() == ""
    session.find_entities = None
    assert len(session.entities("Row")) == 0 and reports.take().count("TypeError") == 1


def test_a_registry_may_map_types_itself(reports):
    class Numbered(qz.Registry):
        broken = False

        def metaclass_name(self, type):
            if self.broken:
                raise ValueError("no names")
            return f"Kind {type.type}" if isinstance(type.type, int) else super().metaclass_name(type)

        def type_of(self, metaclass):
            return qz.EntityFullType(self.find(metaclass) if isinstance(metaclass, str) else metaclass)

        def check_parent(self, metaclass, ancestor):
            return metaclass == 2 or super().check_parent(metaclass, ancestor)

        def named_identifier(self, type, identifier):
            return "named"

        def owners(self, child):
            return {1: [1]} if child == 2 else super().owners(child)

    registry = Numbered()
    for name in ("Kind 1", "Kind 2"):
        registry.insert(name)
        registry.insert_attribute(name, "name", qz.Definition("Name", str))
    session = registry.session("s")
    first = session.create(qz.EntityFullType(1))
    first["name"] = "a"
    assert session.get(first.entity)["name"] == "a" and registry.handle_of(qz.EntityFullType(2)) == 2
    assert session.is_a(qz.Entity(qz.EntityFullType(2), 1), "Kind 1") and not session.is_a(first, "Kind 2")
    with pytest.raises(qz.Refused, match="manadatory"):
        session.create(qz.EntityFullType(2))
    assert session.create("Kind 2", owner=first).owner == first
    assert qz.Registry.types(registry)[0] == qz.EntityFullType(1) and reports.take() == ""
    registry.broken = True
    assert registry.handle_of(qz.EntityFullType(2)) == 0 and reports.take().count("ValueError: no names") == 1


def test_failures_go_to_the_report_of_scripts_where_no_hook_is_set(tables, capfd, monkeypatch):
    import sys
    monkeypatch.setattr(sys, "unraisablehook", sys.__unraisablehook__)
    assert tables.session("broken") is None
    assert "script (python): ValueError: no session for you" in capfd.readouterr().err


def test_serializers_carry_bytes(session, reports):
    class Thicknesses(qz.Serializer):
        def write_session(self, session):
            return b"T\0" + bytes(session.objects("Ply")[0].text("T"), "ascii")

        def read_session(self, data, session):
            if not self.recognizes(data):
                raise qz.Refused("no thicknesses")
            session.create("Ply").set_text("T", data[2:].decode())

        def write_entities(self, entities):
            return str(entities.total)  # no bytes

        def read_entities(self, data):
            return qz.EntityListBag([qz.EntityList("Ply", list(data))])

        def form_version(self):
            return "2.0.0"

        def recognizes_bytes(self, data):
            return data.startswith(b"T\0")

    serializer = Thicknesses()
    session.create("Ply")["T"] = 2.5
    data = serializer.serialize_session(session)
    serializer.deserialize_session(data, session)
    assert data == b"T\x002.5" and session.objects("Ply")[1]["T"] == 2.5
    assert serializer.version == qz.Version("2.0.0") and serializer.can_read("2.0.0") and not serializer.can_read("1.0.0")
    assert serializer.deserialize_entities(b"\1\2")["Ply"].ids.tolist() == [1, 2]
    with pytest.raises(qz.Refused, match="no thicknesses"):
        serializer.deserialize_session(b"U", session)
    assert serializer.failure_message == "no thicknesses" and reports.take() == ""
    for use in (lambda: serializer.serialize_entities(session.all()), lambda: serializer.serialize_entity(qz.Entity("Ply", 1))):
        with pytest.raises(qz.Refused, match="failed"):
            use()
    assert "TypeError: bytes are expected" in (told := reports.take()) and "NotImplementedError" in told
