"""Actions of qzdeck that are written in Python. Each is called with the object it was started on."""

arguments = []


def set_arguments(*words):
    """What stands behind the name of the action on the command line."""
    arguments[:] = words


def scale_thickness(prop):
    """Multiplies the thickness of a shell property: by the first argument, else by 1.1."""
    prop["T"] = prop["T"] * (float(arguments[0]) if arguments else 1.1)
