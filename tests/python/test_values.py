"""Every type of value goes into an attribute and comes back."""

import random

import numpy as np
import pytest

import qzdescriptor as qz
from qzdescriptor import BasicType as B
from qzdescriptor import CompoundType as C
from qzdescriptor import ValueType


def formula(rng):
    made = qz.Formula("GRID")
    made.add(qz.Clause.from_id_range(1, rng.randint(2, 99)))
    return made


def bag(rng):
    return qz.EntityListBag([qz.EntityList("GRID", ids(rng)), qz.EntityList("Ply", ids(rng))])


def formulas(rng):
    made = qz.FormulaBag()
    made.add(formula(rng))
    return made


def bags(rng):
    made = qz.EntityListBagList()
    made[made.register(3, "left")] = bag(rng)
    return made


def ids(rng):
    return [rng.randrange(2**32) for _ in range(rng.randint(0, 5))]


def text(rng):
    return "".join(rng.choice("aß€ 𝄞\"'\\{}\n\udc80") for _ in range(rng.randint(0, 9)))


def whole(bits, signed):
    low, high = (-(2 ** (bits - 1)), 2 ** (bits - 1) - 1) if signed else (0, 2**bits - 1)
    return lambda rng: rng.choice([low, high, rng.randint(low, high)])


def double(rng):
    return rng.choice([0.0, -0.0, float("inf"), 5e-324, 1.7976931348623157e308, rng.uniform(-1e9, 1e9)])


def single(rng):
    return float(np.float32(rng.uniform(-1e6, 1e6)))


def tuples(part, size):
    return lambda rng: tuple(part(rng) for _ in range(size))


def lists(part):
    return lambda rng: [part(rng) for _ in range(rng.randint(0, 4))]


def matrix(side):
    return lambda rng: np.array([[rng.random() for _ in range(side)] for _ in range(side)])


WHOLE = {B.CHAR: whole(8, True), B.UCHAR: whole(8, False), B.SHORT: whole(16, True), B.USHORT: whole(16, False),
         B.INT: whole(32, True), B.UINT: whole(32, False), B.LONG: whole(64, True), B.ULONG: whole(64, False)}
LISTED = [B.CHAR, B.INT, B.UINT, B.LONG, B.ULONG]

CASES = [(ValueType(basic), make) for basic, make in WHOLE.items()]
CASES += [(ValueType(basic, C.SCALAR, 1), lists(WHOLE[basic])) for basic in LISTED]
CASES += [(ValueType(basic, C.SCALAR, 2), lists(lists(WHOLE[basic]))) for basic in LISTED[1:]]
CASES += [
    (ValueType(bool), lambda rng: rng.random() < 0.5),
    (ValueType(list[bool]), lists(lambda rng: rng.random() < 0.5)),
    (ValueType(float), double),
    (ValueType(list[float]), lists(double)),
    (ValueType(list[list[float]]), lists(lists(double))),
    (ValueType(B.FLOAT), single),
    (ValueType(B.FLOAT, C.SCALAR, 1), lists(single)),
    (ValueType(B.FLOAT, C.SCALAR, 2), lists(lists(single))),
    (ValueType(str), text),
    (ValueType(list[str]), lists(text)),
    (ValueType(tuple[float, float]), tuples(double, 2)),
    (ValueType(list[tuple[float, float]]), lists(tuples(double, 2))),
    (ValueType(B.FLOAT, C.COUPLE), tuples(single, 2)),
    (ValueType(tuple[int, int]), tuples(WHOLE[B.INT], 2)),
    (ValueType(tuple[float, float, float]), tuples(double, 3)),
    (ValueType(list[tuple[float, float, float]]), lists(tuples(double, 3))),
    (ValueType(list[list[tuple[float, float, float]]]), lists(lists(tuples(double, 3)))),
    (ValueType(B.FLOAT, C.TRIPLE), tuples(single, 3)),
    (ValueType(tuple[int, int, int]), tuples(WHOLE[B.INT], 3)),
    (ValueType(list[tuple[int, int, int]]), lists(tuples(WHOLE[B.INT], 3))),
    (ValueType(B.DOUBLE, C.MATRIX33), matrix(3)),
    (ValueType(B.DOUBLE, C.MATRIX44), matrix(4)),
    (ValueType(qz.Color), lambda rng: qz.Color(*(rng.randrange(256) for _ in range(rng.choice([1, 3]))))),
    (ValueType(qz.Qualifier), lambda rng: qz.Qualifier(text(rng).replace("\udc80", "") or "q", "GRID", row=4)),
    (ValueType(list[qz.Qualifier]), lists(lambda rng: qz.Qualifier(rng.randint(1, 99), "GRID"))),
    (ValueType(qz.Entity), lambda rng: qz.Entity("GRID", rng.randrange(2**32))),
    (ValueType(list[qz.Entity]), lambda rng: qz.EntityList("GRID", ids(rng))),
    (ValueType(qz.EntityList2), lambda rng: qz.EntityList2("GRID", lists(ids)(rng))),
    (ValueType(qz.EntityListBag), bag),
    (ValueType(qz.EntityListBagList), bags),
    (ValueType(qz.Formula), formula),
    (ValueType(list[qz.Formula]), lists(formula)),
    (ValueType(qz.FormulaBag), formulas),
    (ValueType(qz.Function), lambda rng: qz.Function("tcl", "native", rng.randint(0, 9))),
    (ValueType(B.POINTER), WHOLE[B.ULONG]),
    (ValueType(B.POINTER, C.SCALAR, 1), lists(WHOLE[B.ULONG])),
    (ValueType(qz.Tabular), lambda rng: qz.Tabular({"a": [1.5, 2.5], "b": ["x", text(rng)]})),
]


def plain(data):
    """Arrays as lists, to compare with what was put in."""
    if isinstance(data, np.ndarray):
        return [plain(item) for item in data] if data.ndim != 1 else data.tolist()
    if isinstance(data, (list, tuple)):
        return [plain(item) for item in data]
    return data


@pytest.mark.parametrize("type, make", CASES, ids=lambda case: str(case) if isinstance(case, ValueType) else "")
def test_data_come_back_as_they_went_in(type, make):
    registry = qz.Registry()
    registry.insert("X")
    registry.insert_attribute("X", "v", qz.Definition("V", type))
    target = registry.session("s").create("X")
    seed = random.randrange(10**9)
    rng = random.Random(seed)
    for _ in range(20):
        data = make(rng)
        target["v"] = data
        assert plain(target["v"]) == plain(data), f"seed {seed}"
        assert qz.Value(data, type).data is not None and qz.Value(target["v"], type) == qz.Value(data, type)


@pytest.mark.parametrize("type, data", [
    (float, "2.5"), (float, True), (float, None), (float, 2j), (B.FLOAT, 1e39),
    (int, 2.0), (int, True), (int, 2**31), (B.CHAR, 128), (B.UINT, -1), (B.ULONG, 2**64),
    (bool, 1), (bool, "true"), (str, 5), (str, b"x"),
    (tuple[float, float], (1.0,)), (tuple[float, float], "ab"), (ValueType(B.DOUBLE, C.MATRIX33), np.zeros((2, 3))),
    (list[int], [1, "2"]), (list[int], "12"), (list[int], 5), (list[int], {1: 2}), (list[int], np.zeros(2)),
    (list[qz.Entity], [qz.Entity("A", 1), qz.Entity("B", 2)]), (qz.Entity, 5), (qz.Tabular, {"a": [object()]}),
])
def test_data_of_another_type_are_refused(type, data):
    with pytest.raises(qz.Refused, match="expected|holds"):
        qz.Value(data, type)


def test_arrays_of_any_number_type_are_taken():
    assert qz.Value(np.arange(3), list[float]).data.tolist() == [0.0, 1.0, 2.0]
    assert qz.Value(np.float32(0.5), float).data == 0.5
    assert qz.Value(np.int16(-4), int).data == -4
    assert qz.Value(np.array([1.0, 2.0, 3.0])[::2], list[float]).data.tolist() == [1.0, 3.0]


def test_ids_are_seen_by_numpy_without_a_copy():
    entities = qz.EntityList("GRID", range(5))
    ids = entities.ids
    ids[2] = 77
    view = np.asarray(entities)
    del entities
    assert view.dtype == np.uint32 and view.tolist() == [0, 1, 77, 3, 4]
    view[0] = 9
    assert ids.tolist() == [9, 1, 77, 3, 4]


def test_bags_are_mappings():
    made = qz.EntityListBag([qz.EntityList("GRID", [1, 2])])
    made["Ply"] = qz.EntityList("Ply", [5])
    made += qz.EntityListBag([qz.EntityList("GRID", [2, 3])])
    assert {str(type): list(entities.ids) for type, entities in made.items()} == {"GRID": [1, 2, 3], "Ply": [5]}
    assert "GRID" in made and "Shell" not in made and made.get("Shell") is None and made.total == 4
    with pytest.raises(KeyError):
        made["Shell"]
    with pytest.raises(qz.Refused):
        made["Shell"] = qz.EntityList("Ply", [5])


def test_identities_compare_and_hash():
    pairs = [(qz.Identifier("T"), qz.Identifier("T", 0, None, None), qz.Identifier("U")),
             (qz.Identifier(7), qz.Identifier(7, 0), qz.Identifier(8)),
             (qz.EntityFullType("a'b\\"), qz.EntityFullType("a'b\\"), qz.EntityFullType("a", "b")),
             (qz.Entity("X", 1), qz.Entity(qz.EntityFullType("X"), 1), qz.Entity("Y", 1)),
             (qz.Qualifier("T", "X"), qz.Qualifier("T", "X"), qz.Qualifier("T", "Y")),
             (qz.Color(3), qz.Color(3), qz.Color(3, 0, 0)),
             (qz.Version("1.2.3"), qz.Version("1.2.3"), qz.Version("1.2.4"))]
    for a, same, other in pairs:
        assert a == same and hash(a) == hash(same) and a != other and repr(a) == repr(same) != repr(other)
        assert eval(repr(a), vars(qz)) == a
    assert qz.Identifier("T") != "T" and qz.EntityFullType("T") != "T"
    with pytest.raises(qz.Refused):
        qz.Version("one")
