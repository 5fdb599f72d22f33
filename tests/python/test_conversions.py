"""Data whose conversion runs code that pulls away what is being looked at, and data that are made up."""

import pickle

import numpy as np
import pytest

import qzdescriptor as qz

DOUBLE, SCALAR = qz.BasicType.DOUBLE, qz.CompoundType.SCALAR


class Saboteur:
    """A number whose conversion does something first."""

    def __init__(self, work, number=1):
        self.work, self.number = work, number

    def __index__(self):
        self.work()
        return self.number

    def __float__(self):
        return float(self.__index__())


@pytest.mark.parametrize("count, take", [
    (100, lambda items: list(qz.EntityList("Row", items).ids)),
    (100, lambda items: list(qz.Value(items, list[float]).data)),
    (3, lambda items: list(qz.Value(items, tuple[float, float, float]).data)),
    (3, lambda items: list(qz.Value([items, [1] * 3, [1] * 3], qz.ValueType(DOUBLE, qz.CompoundType.MATRIX33)).data[0])),
    (3, lambda items: list(qz.Tabular({"a": items}).column(0))),
])
def test_sequences_are_taken_as_they_were(count, take):
    items = []
    items += [Saboteur(items.clear) for _ in range(count)]
    assert take(items) == [1] * count


def raising(kind):
    def work():
        raise kind("meanwhile")
    return work


class Sequence(list):
    """A sequence that cannot be gone through, and an object that says nothing of itself."""

    def __init__(self, kind):
        super().__init__([1])
        self.work = raising(kind)

    def __iter__(self):
        self.work()

    def __getattr__(self, name):
        self.work()


TAKES = [
    lambda kind: qz.Value(Saboteur(raising(kind)), float),
    lambda kind: qz.Value(Saboteur(raising(kind)), int),
    lambda kind: qz.Value(type("numpy.bool_", (), {"__bool__": lambda self: raising(kind)()})(), bool),
    lambda kind: qz.Value([Saboteur(raising(kind))], list[float]),
    lambda kind: qz.Value(Sequence(kind), list[float]),
    lambda kind: qz.Value(Sequence(kind), list[str]),
    lambda kind: qz.Value({"a": [Saboteur(raising(kind))]}, qz.Tabular),
    lambda kind: qz.Definition("T", float, default=Saboteur(raising(kind))),
]


@pytest.mark.parametrize("take", TAKES)
def test_only_what_ends_a_program_goes_through_conversions(take):
    for kind in (KeyboardInterrupt, SystemExit, GeneratorExit):
        with pytest.raises(kind, match="meanwhile"):
            take(kind)
    with pytest.raises(qz.Refused):
        take(ValueError)


def test_mappings_are_taken_as_they_were():
    values = {}
    values.update({f"name{i}": Saboteur(values.clear, i) for i in range(100)})
    assert [number for number, name in qz.Allowables(int, values=values).values] == list(range(100))


@pytest.mark.parametrize("use", [
    lambda ply, number: ply.__setitem__("T", number),
    lambda ply, number: setattr(qz.Attribute(ply, "T"), "value", number),
    lambda ply, number: qz.Attribute(ply, "T").test(number),
    lambda ply, number: qz.TabularAttribute(qz.Attribute(ply, "table")).__setitem__((0, 0), number),
    lambda ply, number: qz.TabularAttribute(qz.Attribute(ply, "table")).test_cell((0, 0), number),
])
def test_objects_may_go_while_data_are_converted(registry, session, use):
    registry.insert_attribute("Ply", "table", qz.Definition("Table", qz.Tabular))
    ply = session.create("Ply")
    ply["table"] = qz.Tabular({"a": [1.0, 2.0]})
    with pytest.raises(qz.Ended):
        use(ply, Saboteur(lambda: session.delete(ply), 2))
    assert not ply.is_alive


def test_cells_may_go_while_data_are_converted():
    table = qz.Tabular({"a": [1.0, 2.0], "b": [2.0, 3.0]})
    with pytest.raises(IndexError):
        table[1, 1] = Saboteur(lambda: table.remove_column(0))


@pytest.mark.parametrize("cls", [cls for cls in vars(qz).values() if isinstance(cls, type(qz.Registry))],
                         ids=lambda cls: cls.__name__)
def test_instances_that_were_not_initialised_are_refused(cls):
    natives = {name for name, member in vars(cls).items()
               if isinstance(member, property) or name in ("__len__", "__repr__", "__iter__", "__hash__")}
    for name in natives:
        with pytest.raises(TypeError):
            getter = getattr(cls, name)
            getter.fget(cls.__new__(cls)) if isinstance(getter, property) else getter(cls.__new__(cls))


def test_derived_instances_are_refused_before_their_base_is_initialised(registry):
    class Early(qz.CustomSession):
        def __init__(self, name, registry):
            self.is_alive

    with pytest.raises(TypeError, match="__init__"):
        Early("early", registry)


def deep(levels):
    made = int
    for _ in range(levels):
        made = list[made]
    return made


@pytest.mark.parametrize("make", [
    lambda: qz.ValueType(DOUBLE, SCALAR, 5),
    lambda: qz.ValueType(deep(5)),
    lambda: qz.ValueType(deep(300)),
    lambda: qz.ValueType(list[qz.EntityListBagList]),
    lambda: pickle.loads(pickle.dumps(qz.ValueType(DOUBLE, SCALAR, 4)).replace(b"K\x04", b"K\xff")),
])
def test_types_have_at_most_four_dimensions(make):
    assert qz.ValueType(deep(4)).dimension == 4
    assert b"K\x04" in pickle.dumps(qz.ValueType(DOUBLE, SCALAR, 4))
    with pytest.raises(TypeError, match="dimensions"):
        make()


def test_arrays_are_taken_by_value():
    bools = np.frombuffer(b"\x02\x07\x00", dtype=bool)
    assert qz.Value(bools, list[bool]).data.tobytes() == b"\x01\x01\x00"
    shifted = np.frombuffer(b"\0" + np.array([1.5, 2.5]).tobytes(), dtype=float, offset=1)
    assert list(qz.Value(shifted, list[float]).data) == [1.5, 2.5]


def test_values_are_taken_wherever_data_are(registry, session):
    ply, draft = session.create("Ply"), qz.Content(registry.members("Ply"))
    for holder in (ply, draft):
        holder["T"] = qz.Value(2.0)
        qz.Attribute(holder, "T").value = qz.Value(holder["T"] * 2)
        assert holder["T"] == 4
    draft.set_unchecked("T", qz.Value(-1.0))
    assert draft["T"] == -1
    with pytest.raises(qz.Refused, match="float"):
        draft.set_unchecked("T", qz.Value("thick"))
    assert ply.text("T", format=None) == ply.text("T")


@pytest.mark.parametrize("metaclass, attribute", [("Ply", -1), (-1, "T"), ("Ply", 2**40), ("Ply", None)])
def test_handles_of_a_wrong_type_are_refused(registry, metaclass, attribute):
    with pytest.raises(TypeError):
        registry.definition(metaclass, attribute)
