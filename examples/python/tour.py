"""A short tour: read a structural model, ask it, change it, start an action, save it, and draw it.

    PYTHONPATH=build/plain/lib/python python3 examples/python/tour.py [DECK [FOLDER]]
    build/plain/bin/qzdeck script DECK examples/python/tour.py [-o FILE]

Without a deck it reads one of our own. With Matplotlib, pictures of the mesh and of the lengths of its edges go
into the folder, which is the current one unless another is named. Inside of qzdeck it works on the deck that is
open there, and qzdeck writes it to FILE.
"""

import itertools
import pathlib
import sys

import numpy as np

import qzdescriptor as qz

# What most models have: a type of property, an attribute to ask for, and what it is called.
ASKED = [("PSHELL", "T", "thickness"), ("ply", "T", "thickness"), ("PBAR", "A", "area"), ("PROD", "A", "area"),
         ("CONROD", "A", "area"), ("CONM2", "M", "mass")]

# The corners of the faces of elements, or the ends of lines: 1 is the attribute G1.
FACES = {"CQUAD4": ["1234"], "CQUAD2": ["1234"], "CTRIA3": ["123"], "CTRIA2": ["123"],
         "CBAR": ["AB"], "CBEAM": ["AB"], "CROD": ["12"], "CONROD": ["12"],
         "CTETRA": ["123", "124", "134", "234"],
         "CHEXA": ["1234", "5678", "1265", "2376", "3487", "4158"]}
FACES["CHEXA1"] = FACES["CHEXA"]


def summarize(session) -> None:
    counts = {str(type): len(entities) for type, entities in session.all().items() if len(entities) > 0}
    print(f"{session.name}: {sum(counts.values())} objects")
    for name, count in sorted(counts.items(), key=lambda item: -item[1])[:8]:
        print(f"  {count:7} {name}")


def ask(session) -> list[qz.Object]:
    """Finds the objects with the larger half of the first attribute that the model has."""
    for type, attribute, name in ASKED:
        values = [obj[attribute] for obj in session.objects(type)]
        values = [value for value in values if value is not None]
        if values:
            query = f"{attribute} >= {np.median(values)!r}"
            found = session.objects(type, query)
            print(f"{type} of {name} {query}: {len(found)}, such as {found[0].name}")
            print(f"  why: {session.explain(found[0], query)}")
            change(found[0], attribute)
            return found
    print("nothing to ask for")
    return []


def change(obj: qz.Object, attribute: str) -> None:
    before = obj[attribute]
    obj[attribute] = 1.25 * before or 1.0
    print(f"{obj.name}: {attribute} was {before:g}, is {obj[attribute]:g}")
    for wrong in (-1, "thick"):
        try:
            obj[attribute] = wrong
        except qz.Refused as refused:
            print(f"  refused: {refused}")


def act(obj: qz.Object) -> None:
    names = [str(action) for action in obj.actions if obj.is_action_enabled(action)]
    if not names:
        print(f"{obj.name} has no action that can be started")
        return
    name = "Mass" if "Mass" in names else names[0]
    try:
        print(f"{name}: {obj.invoke(name).splitlines()[0]}")
    except qz.Refused as refused:
        print(f"{name} is refused: {refused}")


def locate_points(session) -> dict[int, tuple[float, float, float]]:
    """Where the points are that are given in the basic coordinate system."""
    points = {point.id: (point["X1"], point["X2"], point["X3"]) for point in session.objects("GRID", "CP = 0")}
    left_out = len(session.entities("GRID")) - len(points)
    if left_out > 0:
        print(f"not drawn: what has corners among {left_out} points in other coordinate systems")
    return points


def list_faces(session) -> list[list[int]]:
    """The corners of the faces of all elements. Faces that two solids share are inside, and left out."""
    faces = []
    for type, shapes in FACES.items():
        found = [[element["G" + corner] for corner in shape]
                 for element in session.objects(type) for shape in shapes]
        if len(shapes) > 1:
            keys = [frozenset(face) for face in found]
            seen = {}
            for key in keys:
                seen[key] = seen.get(key, 0) + 1
            found = [face for face, key in zip(found, keys) if seen[key] == 1]
        faces += found
    return faces


def draw(session, folder: pathlib.Path) -> None:
    points = locate_points(session)
    shapes = [np.array([points[corner] for corner in face]) for face in list_faces(session)
              if all(corner in points for corner in face)]
    if not shapes:
        print("no pictures: there is nothing to draw")
        return
    try:
        import matplotlib
    except ImportError:
        print("no pictures: Matplotlib is not there")
        return
    matplotlib.use("Agg")
    from matplotlib import pyplot
    draw_mesh(pyplot, shapes, folder / "mesh.png")
    draw_lengths(pyplot, shapes, folder / "edges.png")


def draw_mesh(pyplot, shapes: list[np.ndarray], path: pathlib.Path) -> None:
    from mpl_toolkits.mplot3d.art3d import Line3DCollection, Poly3DCollection
    axes = pyplot.figure(figsize=(9, 7)).add_subplot(projection="3d")
    surfaces = [shape for shape in shapes if len(shape) > 2]
    lines = [shape for shape in shapes if len(shape) == 2]
    axes.add_collection3d(Poly3DCollection(surfaces, facecolor="lightsteelblue", edgecolor="navy", linewidth=0.3))
    axes.add_collection3d(Line3DCollection(lines, color="firebrick", linewidth=1.0))
    corners = np.concatenate(shapes)
    low, high = corners.min(axis=0), corners.max(axis=0)
    size = np.maximum(high - low, 0.05 * (high - low).max() or 1.0)
    axes.set(xlim=(low[0], low[0] + size[0]), ylim=(low[1], low[1] + size[1]), zlim=(low[2], low[2] + size[2]),
             xticks=[low[0], high[0]], yticks=[low[1], high[1]], zticks=[low[2], high[2]],
             xlabel="x", ylabel="y", zlabel="z")
    axes.set_box_aspect(size)
    save_picture(pyplot, path)


def draw_lengths(pyplot, shapes: list[np.ndarray], path: pathlib.Path) -> None:
    lengths = [np.linalg.norm(shape - np.roll(shape, -1, axis=0), axis=1)[:len(shape) if len(shape) > 2 else 1]
               for shape in shapes]
    pyplot.figure()
    pyplot.hist(np.concatenate(lengths), bins=40)
    pyplot.xlabel("length of an edge")
    pyplot.ylabel("edges of elements")
    save_picture(pyplot, path)


def save_picture(pyplot, path: pathlib.Path) -> None:
    pyplot.savefig(path, dpi=150, bbox_inches="tight")
    pyplot.close()
    print(f"wrote {path}")


def show(session, folder: pathlib.Path) -> None:
    summarize(session)
    for obj in itertools.islice(ask(session), 1):
        act(obj)
    draw(session, folder)


def main(deck: str = "", folder: str = ".") -> None:
    session = qz.get_script_session()
    if session is not None:  # inside of an application
        show(session, pathlib.Path(folder))
        return
    import qzdeck
    own = pathlib.Path(__file__).parents[1] / "deck" / "data" / "footbridge.bdf"
    with qzdeck.load(deck or own) as session:
        for report in session.reports[:5]:
            print(f"reported: {report}")
        show(session, pathlib.Path(folder))
        changed = pathlib.Path(folder) / "changed.bdf"
        session.save(changed)
        print(f"wrote {changed}")


if __name__ == "__main__":
    main(*sys.argv[1:])
