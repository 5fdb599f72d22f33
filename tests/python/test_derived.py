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


def test_hooks_may_end_their_session(tables):
    class Fleeting(Rows):
        def end(self, *_):
            tables.remove_session(self)

        delete_entity = get_object = create_entity = list_entities = end

    for use in [lambda session: session.get(qz.Entity("Row", 1)), lambda session: session.create("Row"),
                lambda session: session.delete(qz.Entity("Row", 1)), lambda session: session.entities("Row")]:
        session = Fleeting("fleeting", tables)
        try:
            use(session)
        except (qz.Refused, qz.Ended):
            pass
        assert not session.is_alive
