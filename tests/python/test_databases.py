"""Tables that are held outside memory."""

import copy
import gc
import pickle

import numpy as np
import pytest

import qzdescriptor as qz

try:
    qz.Database(":memory:")
except qz.Refused as refused:
    pytest.skip(f"no store of tables: {refused}", allow_module_level=True)


def make():
    return qz.Tabular({"t": np.linspace(0, 1, 3), "phase": ["rest", "rämp \udcff", ""], "at": qz.EntityList("GRID", [7, 8, 9])})


def test_tables_outlive_their_database_in_a_file(tmp_path):
    path = str(tmp_path / "run ä.qzdt")
    with qz.Database(path) as database:
        stored = database.create("results").store(make(), "displacements")
        stored[0, 0] = 5
        assert stored.uses_external_storage and stored.name == "displacements" and stored.table_set.name == "results"
        with pytest.raises(qz.Refused):
            qz.Database(path)
    assert not database.is_open and "closed" in repr(database)
    for use in (lambda: stored[0, 0], lambda: stored.column(0), lambda: stored.copy_to_memory(), lambda: database.flush(),
                lambda: list(database)):
        with pytest.raises(qz.Ended):
            use()
    with qz.Database(path) as database:
        results = database["results"]
        assert list(database) == ["results"] and list(results) == ["displacements"] and "displacements" in results
        again = results["displacements"]
        assert again[0, 0] == 5.0 and again.copy_to_memory().column(2) == make().column(2)
        again.name = "first"
        with pytest.raises(KeyError):
            results["displacements"]
        del results["first"], again
        assert len(results) == 0
        del database["results"]
        with pytest.raises(KeyError):
            database["results"]


def test_changes_are_done_as_one_or_not_at_all():
    database = qz.Database(":memory:")
    kept = database.create("kept")
    with pytest.raises(ZeroDivisionError), database.change():
        kept.store(make(), "lost")
        1 / 0
    with database.change():
        kept.store(make(), "there")
    assert list(kept) == ["there"]
    with pytest.raises(qz.Refused):
        kept.store(make(), "there")


def test_columns_have_identifiers_outside_memory_only():
    table = qz.Database(":memory:").create("s").store(make())
    with pytest.raises(qz.Ended):  # the database went with its last handle
        table.set_column_identifier(1, "phase")
    database = qz.Database(":memory:")
    table = database.create("s").store(make())
    table.set_column_identifier(1, "phase")
    assert table.find_column("phase") == 1 and table.column_identifier(0) is None and table.name is None
    assert list(table.to_dict()) == [0, "phase", 2] and table.entity_type(2) == qz.EntityFullType("GRID")
    apart = copy.copy(table)
    apart[0, 0] = 9
    assert table[0, 0] == 0.0 and apart.uses_external_storage
    with pytest.raises(TypeError, match="copy_to_memory"):
        pickle.dumps(table)
    with pytest.raises(qz.Refused):
        make().set_column_identifier(0, "t")


def test_a_set_keeps_its_database_open():
    held = qz.Database(":memory:").create("s")
    gc.collect()
    table = held.create("empty")
    table.insert_column(["a", "b"])
    assert len(held["empty"]) == 2 and held.database.is_open
