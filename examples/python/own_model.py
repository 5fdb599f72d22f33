"""A model of your own: describe a laminate, fill it, ask it questions, change it, and show a table of it.

    PYTHONPATH=build/release/lib/python python3 examples/python/own_model.py [PICTURE]

With Matplotlib, the thicknesses are drawn into the file that is named.
"""

import sys

import numpy as np

import qzdescriptor as qz


def describe() -> qz.Registry:
    """What plies and laminates are."""
    registry = qz.Registry()
    registry.insert("Part")
    registry.insert_attribute("Part", "name", qz.Definition("Name", str))
    registry.insert("Ply", parent="Part")
    registry.insert_attribute("Ply", "T", qz.Definition("Thickness", float, default=0.125, above=0, units="LENGTH"))
    registry.insert_attribute("Ply", "angle", qz.Definition("Angle", float, at_least=-90, at_most=90, default=0))
    registry.insert_attribute("Ply", "material", qz.Definition("Material", str, values=["glass", "carbon"],
                                                               default="carbon"))
    registry.insert_action("Ply", "flip", qz.ActionDefinition("Flip", flip, description="Turns the ply over"))
    registry.insert("Laminate", parent="Part")
    registry.insert_attribute("Laminate", "plies", qz.Definition("Plies", list[qz.Entity]))
    registry.set_ownership("Ply", "Laminate", "plies")
    return registry


def flip(ply: qz.Object) -> None:
    ply["angle"] = -ply["angle"]


def fill(session: qz.Session) -> qz.Object:
    laminate = session.create("Laminate")
    laminate["name"] = "wing skin"
    rng = np.random.default_rng(1)
    for angle in np.tile([0.0, 45.0, -45.0, 90.0], 6):
        ply = session.create("Ply", owner=laminate, attribute="plies")
        ply["angle"] = angle
        ply["T"] = rng.normal(0.125, 0.01)
    return laminate


def tabulate(session: qz.Session) -> tuple[qz.Tabular, list[str]]:
    plies = session.objects("Ply")
    columns = {"ply": session.entities("Ply"), "thickness": np.array([ply["T"] for ply in plies]),
               "angle": np.array([ply["angle"] for ply in plies]), "material": [ply["material"] for ply in plies]}
    return qz.Tabular(columns), list(columns)


def show(table: qz.Tabular, names: list[str], rows: int = 5) -> None:
    try:
        print(table.to_pandas(names).head(rows).to_string(index=False))
    except ImportError:
        for row in range(min(rows, len(table))):
            print({name: table[row, column] for column, name in enumerate(names)})


def draw(thicknesses: np.ndarray, path: str) -> None:
    try:
        import matplotlib
    except ImportError:
        print("no picture: Matplotlib is not there")
        return
    matplotlib.use("Agg")
    from matplotlib import pyplot
    pyplot.hist(thicknesses, bins=12)
    pyplot.xlabel("thickness")
    pyplot.savefig(path)
    print(f"wrote {path}")


def main() -> None:
    registry = describe()  # it owns the sessions, so it is kept
    session = registry.session("wing")
    laminate = fill(session)
    print(f"{laminate.name}: {session.count('Ply')} plies, "
          f"{session.owned(laminate, 'plies')['Ply'].ids[:4]} are the first")

    query = "angle in 45, -45 and T > 0.125"
    thick = session.entities("Ply", query)
    print(f"{query}: {thick.ids}")
    print(session.explain(session.objects("Ply")[0], query))

    changes = []
    connection = session.on_event(lambda event: changes.append((str(event.identifier), event.ids)))
    for ply in session.objects("Ply", query):
        ply.invoke("flip")
    connection.disconnect()
    print(f"flipped: {changes}")

    try:
        session.objects("Ply")[0]["T"] = -1
    except qz.Refused as refused:
        print(f"refused: {refused}")

    table, names = tabulate(session)
    show(table, names)
    if len(sys.argv) > 1:
        draw(table.column(1), sys.argv[1])


if __name__ == "__main__":
    main()
