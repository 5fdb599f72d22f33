"""What the stubs declare is what the module has, and the other way round."""

import ast
import inspect
import pathlib
import subprocess
import sys

import pytest

import qzdescriptor as qz

FOLDER = pathlib.Path(qz.__file__).parent.parent
STUB = FOLDER / "qzdescriptor-stubs" / "__init__.pyi"


def declared(node):
    """The names that a module or class declares, by name."""
    names = {}
    for item in node.body:
        if isinstance(item, (ast.ClassDef, ast.FunctionDef)):
            names[item.name] = item
        elif isinstance(item, ast.AnnAssign):
            names[item.target.id] = item
    return names


def public(names):
    return {name for name in names if not name.startswith("_")}


def own(cls):
    """What a class itself brings; enumerations bring a little more that is pybind11's."""
    extra = {"name", "value"} if hasattr(cls, "__members__") else set()
    return public(vars(cls)) - extra


def test_stubs_match_the_module():
    stub = declared(ast.parse(STUB.read_text()))
    assert public(stub) == set(qz.__all__)
    pending = [(name, vars(qz)[name], stub[name]) for name in qz.__all__ if inspect.isclass(vars(qz)[name])]
    assert pending
    while pending:
        path, cls, node = pending.pop()
        names = declared(node)
        assert public(names) == own(cls), path
        pending += [(f"{path}.{name}", vars(cls)[name], names[name]) for name in public(names)
                    if inspect.isclass(vars(cls).get(name))]


def test_everything_public_is_explained():
    silent = [name for name in qz.__all__ if not (getattr(vars(qz)[name], "__doc__", None) or "").strip()]
    assert silent == []


def test_mypy_agrees(tmp_path):
    pytest.importorskip("mypy")
    # Of the classes themselves it tells the metaclass, of those that are not made in Python the constructor.
    passed_over = tmp_path / "passed-over"
    passed_over.write_text("qzdescriptor\\.[A-Z]\\w*(\\.[A-Z]\\w*)?\n"
                           "qzdescriptor\\.(Connection|DatabaseChange|Members|Object|Session|TableSet)\\.__init__\n")
    done = subprocess.run([sys.executable, "-m", "mypy.stubtest", "qzdescriptor", "--ignore-missing-stub",
                           "--allowlist", str(passed_over), "--ignore-unused-allowlist"],
                          capture_output=True, text=True, cwd=FOLDER)
    assert done.returncode == 0, done.stdout


OVERRIDES = '''
import qzdescriptor as qz

class Row(qz.CustomObject):
    def read_value(self, attribute: qz.Identifier) -> float: return 1.0
    def read_text(self, attribute: qz.Identifier, form: str) -> str: return form
    def read_data_operations(self) -> qz.DataOperationList: return qz.DataOperationList()
    def run_action(self, action: qz.Identifier) -> None: ...

class Rows(qz.CustomSession):
    def create_entity(self, kind: qz.EntityFullType, owner: qz.Entity | None, under: qz.Identifier | None) -> qz.Entity:
        return qz.Entity(kind, 1)
    def get_object(self, entity: qz.Entity) -> Row | None: return None
    def list_entities(self, kind: qz.EntityFullType, query: str) -> list[int]: return [1]
    def find_entity(self, kind: qz.EntityFullType, name: str) -> qz.Entity | None: return None
    def delete_entity(self, entity: str) -> None: ...  # of a wrong type

def use(registry: qz.Registry, session: qz.Session) -> None:
    registry.insert_attribute("Row", "T", qz.Definition("T", float), secondary="t")
    session.create("Row", attribute="rows")
    names: list[str] = [row.name for row in session.objects("Row")]
    types: list[qz.EntityFullType] = [type for type, entities in session.all().items() if len(entities) > 0]
'''


def test_type_checkers_pass_correct_overrides_and_no_others(tmp_path):
    pytest.importorskip("mypy")
    (tmp_path / "rows.py").write_text(OVERRIDES)
    done = subprocess.run([sys.executable, "-m", "mypy", "--cache-dir", str(tmp_path), str(tmp_path / "rows.py")],
                          capture_output=True, text=True, cwd=FOLDER)
    errors = [line for line in done.stdout.splitlines() if ": error:" in line]
    assert len(errors) == 1 and '"delete_entity"' in errors[0], done.stdout


def test_no_container_keeps_quiet_about_what_it_holds(tmp_path):
    pytest.importorskip("mypy")
    done = subprocess.run([sys.executable, "-m", "mypy", "--strict", "--cache-dir", str(tmp_path), "-p", "qzdescriptor"],
                          capture_output=True, text=True, cwd=FOLDER)
    assert done.returncode == 0, done.stdout
