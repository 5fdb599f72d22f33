"""Scripts whose objects and hooks end what is just being read: nothing of it may crash."""

import gc
import inspect
import subprocess
import sys

import pytest

import qzdescriptor as qz


class Row(qz.CustomObject):
    def __init__(self, session, entity):
        super().__init__(session, entity)
        self.values = {}

    def read_value(self, attribute):
        return self.values.get(str(attribute), 2.0)


class Rows(qz.CustomSession):
    """Its rows are 1 and 2."""

    row = Row

    def __init__(self, name, registry):
        super().__init__(name, registry)
        self.rows = {entity: self.row(self, entity) for entity in (qz.Entity("Row", 1), qz.Entity("Row", 2))}

    def get_object(self, entity):
        return self.rows.get(entity)

    def delete_entity(self, entity):
        del self.rows[entity]

    def list_entities(self, type, query):
        return [1, 2]


FIRST, SECOND = qz.Entity("Row", 1), qz.Entity("Row", 2)


@pytest.fixture
def held():
    """The only references to the registry; scripts let go of it by clearing them."""
    registry = qz.Registry()
    registry.insert("Row")
    registry.insert_attribute("Row", "T", qz.Definition("T", float, default=1.5))
    return [registry]


def let_go(held):
    held.clear()
    gc.collect()


def test_views_of_an_object_end_with_it(held):
    session = Rows("a", held[0])
    row = Row(session, qz.Entity("Row", 9))
    view = qz.Attribute(row, "T")
    assert view.value == 2
    del row
    gc.collect()
    with pytest.raises(qz.Ended):
        view.value


def test_an_object_answers_after_its_registry_has_ended(held):
    row = Row(Rows("a", held[0]), FIRST)
    let_go(held)
    assert not row.is_alive
    assert row.read_definition("T") is None and row.read_allowables("T") is None and row.read_text("T") is None
    assert row.list_attributes() == [] and row.read_action("x") is None
    with pytest.raises(qz.Refused):
        row.write_display_status("T", 1)


def test_objects_that_are_read_outlast_their_entities(held):
    class Fleeting(Row):
        def read_value(self, attribute):
            self.session.delete(self.entity)
            return 2.0

    class FleetingRows(Rows):
        row = Fleeting

    class Renewed(Row):
        def read_value(self, attribute):
            self.session.get(self.entity)
            return 2.0

    class RenewedRows(Rows):
        def get_object(self, entity):
            return Renewed(self, entity)

    for session in (FleetingRows("a", held[0]), RenewedRows("b", held[0])):
        assert session.entities("Row", "T > 1").ids.tolist() == [1, 2]
    assert FleetingRows("c", held[0]).get(FIRST)["T"] == 2


def test_what_the_end_of_an_object_does_is_done_after_its_replacement(held):
    class Haunted(Row):
        def __del__(self):
            if len(ends) < 20:
                ends.append(self.session.get(FIRST))

    class HauntedRows(Rows):
        def get_object(self, entity):
            return Haunted(self, entity)

    ends = []
    session = HauntedRows("a", held[0])
    for _ in range(5):
        session.get(FIRST)
    assert ends and session.get(FIRST)["T"] == 2


USES = {
    "get": lambda session: session.get(FIRST),
    "find": lambda session: session.find("Row", "x"),
    "create": lambda session: session.create("Row"),
    "delete": lambda session: session.delete(FIRST),
    "owner": lambda session: session.owner(FIRST),
    "owned": lambda session: session.owned(FIRST, "T"),
    "owned_list": lambda session: session.owned_list(FIRST, "Row", "T"),
    "objects": lambda session: session.objects("Row", "T > 1"),
    "all": lambda session: session.all(),
    "count": lambda session: session.count("Row"),
    "referred": lambda session: session.referred(FIRST),
    "explain": lambda session: session.explain(FIRST, "T > 1"),
}


@pytest.mark.parametrize("use", USES.values(), ids=USES)
def test_a_registry_ends_after_the_question_during_which_it_was_let_go(held, reports, use):
    class Leaving(Rows):
        def leave(self, *_):
            alive.append(self.is_alive)
            let_go(held)
            alive.append(self.is_alive)

        create_entity = delete_entity = find_entity = find_owner = list_entities = list_owned = get_object = leave

    alive = []
    session = Leaving("a", held[0])
    try:
        use(session)
    except (qz.Refused, qz.Ended):
        pass
    assert all(alive) and session.is_alive == (not alive)


def test_a_value_is_not_given_when_reading_it_ends_the_registry(held):
    class Leaving(Row):
        def read_value(self, attribute):
            let_go(held)
            return 2.0

    row = Leaving(Rows("a", held[0]), qz.Entity("Row", 9))
    view = qz.Attribute(row, "T")
    with pytest.raises((KeyError, qz.Ended)):
        row["T"]
    for read in (lambda: row["T"], lambda: row.text("T"), lambda: view.value, lambda: view.is_set):
        with pytest.raises((KeyError, qz.Ended)):
            read()


def test_walks_over_collections_pass_over_what_ends_meanwhile(held):
    class Shrinking(Rows):
        shrinks = False

        def get_object(self, entity):
            if self.shrinks and entity == SECOND and FIRST in self.rows:
                self.delete(FIRST)
                objects.remove(FIRST)
            return super().get_object(entity)

    session = Shrinking("a", held[0])
    objects = qz.MetaobjectCollection(session, [FIRST, SECOND])
    session.shrinks = True
    assert [row.entity for row in objects] == [FIRST, SECOND]  # given before it was deleted
    assert objects.entities == [SECOND] and FIRST not in objects


def test_actions_are_given_the_object_itself(held):
    class Renewed(Rows):
        def get_object(self, entity):
            return Row(self, entity)

    seen = []
    held[0].insert_action("Row", "look", qz.ActionDefinition("Look", seen.append))
    row = Renewed("a", held[0]).get(FIRST)
    row.invoke("look")
    assert seen[0] is row and seen[0]["T"] == 2


@pytest.mark.parametrize("how", ["entity", "replaced", "session", "registry"])
def test_an_enabled_test_that_ends_its_object_disables_the_action(held, how):
    def ends(row):
        if how in ("entity", "replaced"):
            session.delete(row)
            for id in (row.id + 70, row.id) if how == "replaced" else ():
                session.create("Row", id=id)
        elif how == "session":
            held[0].remove_session(session)
        else:
            let_go(held)

    held[0].insert_action("Row", "look", qz.ActionDefinition("Look", lambda row: "seen", enabled_test=ends))
    session = held[0].session("a")
    rows = [session.create("Row") for _ in range(2)]
    assert not rows[0].is_action_enabled("look") and rows[0].is_alive == (how == "replaced")
    with pytest.raises((qz.Refused, qz.Ended)):
        rows[1].invoke("look")


HOOKS = [name for name, member in vars(qz.CustomObject).items() if name.startswith(("list_", "read_", "write_", "run_"))]
ASKS = [
    lambda row: row["T"], lambda row: row.__setitem__("T", 3.0), lambda row: row.text("T"), lambda row: row.set_text("T", "4"),
    lambda row: row.attributes, lambda row: row.definition("T"), lambda row: row.allowables("T"),
    lambda row: row.set_allowables("T", qz.Allowables(float, default=5.0, above=4)), lambda row: row.display_status("T"),
    lambda row: row.set_display_status("T", 1), lambda row: row.actions, lambda row: row.is_action_enabled("look"),
    lambda row: row.is_action_visible("look"), lambda row: row.invoke("look"), lambda row: row.owner, lambda row: row.name,
    lambda row: row.data_operations,
]


@pytest.mark.parametrize("hook", HOOKS)
@pytest.mark.parametrize("fails", [False, True])
def test_hooks_may_let_go_of_their_object(held, reports, hook, fails):
    def let_go_of_row(self, *arguments):
        rows.clear()
        if fails:
            raise ValueError("let go")
        return 2.0 if hook == "read_value" else getattr(super(Row, self), hook)(*arguments)

    held[0].insert_action("Row", "look", qz.ActionDefinition("Look", lambda row: "seen"))
    session = held[0].session("a")
    kind = type("Fleeting", (Row,), {"write_value": lambda self, *_: None, hook: let_go_of_row})
    views = [lambda view: view.value, lambda view: view.is_set, lambda view: view.type, lambda view: setattr(view, "value", 3.0)]
    for ask in ASKS + views:
        rows = [kind(session, FIRST)]
        try:
            if ask in views:
                view = qz.Attribute(rows[0], "T")
                ask(view)
            else:
                ask(rows[0])
        except (qz.Refused, qz.Ended, KeyError):
            pass


def test_methods_are_not_called_on_nothing():
    functions = [function for name in qz.__all__ if inspect.isclass(kind := vars(qz)[name])
                 for member in vars(kind).values() for function in (getattr(member, "fget", member), getattr(member, "fset", None))
                 if type(function).__name__ in ("instancemethod", "builtin_function_or_method")]
    assert len(functions) > 500
    for function in functions:
        for arguments in [(None,), (None, 1)]:
            try:
                function(*arguments)
            except Exception:  # TypeError mostly; some may be called on anything
                pass


def test_exceptions_without_a_text_are_told(held, capfd, monkeypatch):
    monkeypatch.setattr(sys, "unraisablehook", sys.__unraisablehook__)

    class Mute(BaseException):
        def __str__(self):
            raise Mute

    def fail(event):
        raise Mute

    session = held[0].session("a")
    session.on_event(fail)
    session.create("Row")
    assert "Mute: <exception str() failed>" in capfd.readouterr().err


def test_hooks_that_call_themselves_for_ever_fail(capfd):
    class Endless(qz.Registry):
        def create_session(self, name):
            return self.session(name)

    assert Endless().session("a") is None


ENDS = {
    "remove_session": lambda held, session: held[0].remove_session(session),
    "delete": lambda held, session: session.delete(FIRST),
    "let_go": lambda held, session: let_go(held),
}
QUESTIONS = [
    lambda session: session.all(), lambda session: session.explain(FIRST, "T > 1"), lambda session: session.count("Row"),
    lambda session: session.is_a(FIRST, qz.EntityFullType("Row")),
    lambda session: session.create("Row"), lambda session: session.get(FIRST)["T"], lambda session: session.entities("Row", "T > 1"),
]


@pytest.mark.parametrize("end", ENDS.values(), ids=ENDS)
@pytest.mark.parametrize("hook", ["types", "type_of", "metaclass_name", "handle_of", "check_parent", "owners"])
def test_a_registry_ends_nothing_while_it_is_asked(hook, end, reports):
    class Ending(qz.Registry):
        asked = False

    def ends(self, *arguments):
        if Ending.asked and held:
            alive.append(session.is_alive)
            end(held, session)
            alive.append(session.is_alive)
        return getattr(qz.Registry, hook)(self, *arguments)

    setattr(Ending, hook, ends)
    alive = []
    for question in QUESTIONS:
        Ending.asked = False
        held = [Ending()]
        held[0].insert("Row")
        held[0].insert_attribute("Row", "T", qz.Definition("T", float, default=1.5))
        session = held[0].session("a")
        session.create("Row", id=1)
        Ending.asked = True
        try:
            question(session)
        except (qz.Refused, qz.Ended):
            pass
    assert alive and all(alive)


def test_a_registry_that_is_asked_may_create_and_insert():
    class Busy(qz.Registry):
        session_in_use = None

        def type_of(self, metaclass):
            session, self.session_in_use = self.session_in_use, None
            if session is not None:
                made.append(session.create("Row"))
            if len(self) < 50:
                self.insert(f"Row {len(self)}")
            return super().type_of(metaclass)

    made = []
    registry = Busy()
    registry.insert("Row")
    session = registry.session("a")
    registry.session_in_use = session
    made.append(session.create("Row"))
    assert sorted(row.id for row in made) == [1, 2] and all(row.is_alive for row in made)
    assert session.all().total == 2


def test_a_function_that_groups_attributes_may_delete_the_object(held):
    def group(attribute):
        if row.is_alive:
            session.delete(row)
        return "one"

    held[0].insert_attribute("Row", "U", qz.Definition("U", float))
    session = held[0].session("a")
    row = session.create("Row")
    with pytest.raises(qz.Ended):
        qz.AttributeHelper(row).categories(group)
    assert not row.is_alive


ENDING_THREAD = """
import threading
import qzdescriptor as qz

class Row(qz.CustomObject):
    def read_value(self, attribute):
        rows.clear()
        return 2.0

class Rows(qz.CustomSession):
    def create_entity(self, type, owner, under):
        entity = qz.Entity(type, 1)
        rows[1] = Row(self, entity)
        return entity

    def get_object(self, entity):
        return rows.get(entity.id)

def work():
    attribute = qz.Attribute(rows[1], "T")
    print(attribute.value)

rows = {}
registry = qz.Registry()
registry.insert("Row")
registry.insert_attribute("Row", "T", qz.Definition("T", float, default=1.0))
session = Rows("a", registry)
session.create("Row")
thread = threading.Thread(target=work)
thread.start()
thread.join()
"""


def test_threads_that_hold_what_is_over_may_end_while_python_does():
    for _ in range(5):
        done = subprocess.run([sys.executable, "-c", ENDING_THREAD], capture_output=True, text=True)
        assert (done.returncode, done.stdout) == (0, "2.0\n"), done.stderr
