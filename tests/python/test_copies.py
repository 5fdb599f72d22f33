"""Values are copied and pickled; handles are not. Texts are any bytes, everywhere."""

import copy
import pickle

import pytest

import qzdescriptor as qz
from test_values import CASES

ODD = "Plät \udcff\udc80"

IDENTITIES = [
    qz.Identifier(), qz.Identifier(-7, 2, 3, None), qz.Identifier(ODD, column=4), qz.IdentifierPair(3, ODD),
    qz.EntityFullType(), qz.EntityFullType(3, ODD), qz.EntityFullType(ODD, 4).with_topology(2), qz.Entity(ODD, 5, -3),
    qz.Qualifier(ODD, "X", 1, 2, 3, 4), qz.Qualifier(9, qz.EntityFullType(4)), qz.Color(7), qz.Color(1, 2, 3),
    qz.Version(), qz.Version("1.2.3-alpha.1+b5"), qz.Function(ODD, "native", 3), qz.ValueType(list[float]), qz.Value(),
    qz.Value(2.5, float, text_beside=ODD, display_status=0), qz.CardPosition(1, 2, 8, ODD, decorator="x"), qz.DataType.INT_LIST]


@pytest.mark.parametrize("value", IDENTITIES, ids=lambda value: ascii(value))
def test_identities_are_copied_and_pickled(value):
    pickled = [pickle.loads(pickle.dumps(value, protocol)) for protocol in range(pickle.HIGHEST_PROTOCOL + 1)]
    for again in (copy.copy(value), copy.deepcopy([value])[0], *pickled):
        assert again == value and repr(again) == repr(value) and type(again) is type(value)


def test_what_equality_passes_over_is_kept():
    again = pickle.loads(pickle.dumps(qz.EntityFullType("X").with_topology(2)))
    assert again.topology == 2
    corners = qz.EntityList(again, [1, 2], [-1, 3])
    assert pickle.loads(pickle.dumps(corners)).topology_indices.tolist() == [-1, 3] and corners[1].topology_index == 3
    value = pickle.loads(pickle.dumps(qz.Value(2.5, float, text_beside="about 2", display_status=0)))
    assert (value.text_beside, value.display_status) == ("about 2", 0)
    bags = qz.EntityListBagList()
    bags.unregister(bags.register(1, "gone"))
    bags.set_user_flag(bags.register(2, ODD), 6)
    again = pickle.loads(pickle.dumps(bags))
    assert again.find(2, ODD) == 1 and again.user_flag(1) == 6 and again == bags


@pytest.mark.parametrize("type, make", CASES, ids=lambda case: str(case) if isinstance(case, qz.ValueType) else "")
def test_values_of_every_type_are_pickled(type, make):
    import random
    seed = random.randrange(10**9)
    rng = random.Random(seed)
    for _ in range(5):
        value = qz.Value(make(rng), type)
        assert pickle.loads(pickle.dumps(value)) == value == copy.deepcopy(value), f"seed {seed}"


def test_copies_are_apart():
    ids = qz.EntityList("GRID", [1, 2])
    apart = copy.copy(ids)
    apart.ids[0] = 9
    assert ids.ids[0] == 1
    definition = qz.Definition("T", float)
    copy.copy(definition).display_name = "U"
    assert definition.display_name == "T"


def test_what_cannot_be_pickled_says_so(registry, session):
    ply = session.create("Ply")
    for thing in (registry, session, ply, registry.members("Ply"), qz.Content(registry.members("Ply")),
                  qz.Attribute(ply, "T"), qz.Definition("T", float), qz.ActionDefinition("A", print),
                  qz.MetaobjectCollection(session), session.on_event(print)):
        for protocol in range(pickle.HIGHEST_PROTOCOL + 1):
            with pytest.raises(TypeError, match="pickle"):
                pickle.dumps(thing, protocol)
    for thing in (registry, session, ply):
        with pytest.raises(TypeError, match="pickle"):
            copy.deepcopy(thing)


def test_the_base_of_all_classes_has_no_instances():
    base = qz.Entity.__base__
    for make in (base, lambda: base.__new__(base), type("Bare", (base,), {})):
        with pytest.raises(TypeError, match="cannot create instances"):
            make()


def test_texts_are_any_bytes(registry):
    registry.insert(ODD)
    registry.insert_attribute(ODD, ODD, qz.Definition(ODD, str, description=ODD, values={ODD: ODD}, default=ODD))
    registry.insert_action(ODD, ODD, qz.ActionDefinition(ODD, lambda thing: ODD))
    registry.insert_action(ODD, "no", qz.ActionDefinition(ODD, lambda thing: (_ for _ in ()).throw(qz.Refused(ODD))))
    session = registry.session(ODD)
    thing = session.create(ODD)
    assert (session.name, registry.name(ODD), str(registry.attributes(ODD)[0]), thing[ODD]) == (ODD,) * 4
    assert thing.definition(ODD).description == ODD and thing.allowables(ODD).values == [(ODD, ODD)]
    assert thing.invoke(ODD) == ODD and ascii(thing) and ascii(session) and ODD in registry
    for use, kind in [(lambda: thing.invoke("no"), qz.Refused), (lambda: thing["x" + ODD], KeyError),
                      (lambda: thing.set_text(ODD, "x" + ODD), qz.Refused), (lambda: registry.name("x" + ODD), KeyError)]:
        with pytest.raises(kind) as raised:
            use()
        assert ODD in str(raised.value.args[0])
    assert hash(qz.Version("1.0.0")) == hash(qz.Version("1.0.0")) and hash(qz.EntityFullType(ODD)) is not None
    with pytest.raises(qz.Refused):
        qz.Version("1." + ODD)
    with pytest.raises(qz.Refused):
        qz.Version("99999999999.0.0")
