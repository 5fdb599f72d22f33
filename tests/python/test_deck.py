"""The module of the example application: decks as sessions."""

import gc
import pathlib

import pytest

import qzdescriptor as qz

qzdeck = pytest.importorskip("qzdeck")

DATA = pathlib.Path(__file__).parents[2] / "examples" / "deck" / "data"
BRIDGE = DATA / "footbridge.bdf"


def test_a_deck_is_a_session():
    with qzdeck.load(BRIDGE) as deck:
        assert deck.name == str(BRIDGE) and deck.reports == []
        plate, = deck.objects("PSHELL", "T = 8")
        assert plate.session == deck.session
        plate["T"] = 10
        with pytest.raises(qz.Refused, match="Input of -1 violates: VALUE > 0"):
            plate["T"] = -1
        assert "12 elements" in plate.invoke("Mass")
        assert deck.entities("CQUAD4", "EID < 1003").ids.tolist() == [1001, 1002]
        with pytest.raises(AttributeError):
            deck.nothing_like_it


def test_what_is_saved_is_read_again(tmp_path):
    path = tmp_path / "out.bdf"
    with qzdeck.load(BRIDGE) as deck:
        deck.objects("PSHELL")[0]["T"] = 12.5
        deck.save(path)
        with pytest.raises(OSError, match="the deck was read from it"):
            deck.save(BRIDGE)
        with pytest.raises(OSError, match="cannot write"):
            deck.save(tmp_path / "none" / "out.bdf")
    with qzdeck.load(path) as deck:
        assert deck.objects("PSHELL")[0]["T"] == 12.5


def test_faults_are_reports_or_errors(tmp_path):
    for path in (tmp_path, tmp_path / "none.bdf"):
        with pytest.raises(OSError, match="cannot read"):
            qzdeck.load(path)
    path = tmp_path / "deck.bdf"
    path.write_text("GRID,1..\n")
    report = f"{path}:1: neither a number nor a text: '1..'"
    assert qzdeck.load(path).reports == [report]
    with pytest.raises(ValueError) as raised:
        qzdeck.load(path, strict=True)
    assert str(raised.value) == report


def test_the_session_lives_as_long_as_the_deck_is_kept():
    session = qzdeck.load(BRIDGE).session
    bound = qzdeck.load(BRIDGE).count
    points = session.objects("GRID")
    gc.collect()
    assert bound("GRID") == session.count("GRID") == len(points)
    del session
    gc.collect()
    assert not points[0].is_alive

    deck = qzdeck.load(BRIDGE)
    deck.close()
    deck.close()
    assert not deck.is_open
    for use in (lambda: deck.count("GRID"), lambda: deck.session.name, lambda: deck.reports, lambda: deck.save("x")):
        with pytest.raises(qz.Ended):
            use()


def test_listeners_may_close_it():
    deck = qzdeck.load(BRIDGE)
    ended = []
    deck.on_end(lambda: ended.append(deck.count("GRID")))
    deck.on_event(lambda event: deck.close())
    deck.objects("PSHELL")[0]["T"] = 3
    assert not deck.is_open and ended == [21]
