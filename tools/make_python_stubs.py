"""Writes the type stubs of the module anew, from the signatures that it tells.

    PYTHONPATH=build/release/lib/python python3 tools/make_python_stubs.py
"""

import inspect
import pathlib
import re

import qzdescriptor as qz

TARGET = pathlib.Path(__file__).parent.parent / "bindings/python/qzdescriptor-stubs" / "__init__.pyi"

HEADER = '''"""Written by tools/make_python_stubs.py from the signatures of the module."""

from collections.abc import Callable, Iterable, Iterator
from typing import Any, overload

import numpy

'''

# What an argument of a class may be besides: the module makes one of it.
ALSO = {"Identifier": "str | int", "EntityFullType": "str", "Version": "str"}
# Methods that derived classes put in the place of these. C++ calls them by position, so that names are free, and takes
# more answers than one class.
ENTITY = "Entity | Object"
ATTRIBUTE = "attribute: Identifier"
HOOKS = {
    "CustomObject.read_value": (ATTRIBUTE, "Any"),
    "CustomObject.write_value": (f"{ATTRIBUTE}, value: Any", "None"),
    "CustomObject.read_text": (f"{ATTRIBUTE}, format: str", "str | None"),
    "CustomObject.write_text": (f"{ATTRIBUTE}, text: str, format: str", "None"),
    "CustomObject.read_display_status": (ATTRIBUTE, "int"),
    "CustomObject.write_display_status": (f"{ATTRIBUTE}, status: int", "None"),
    "CustomObject.read_definition": (ATTRIBUTE, "Definition | None"),
    "CustomObject.read_allowables": (ATTRIBUTE, "Allowables | None"),
    "CustomObject.write_allowables": (f"{ATTRIBUTE}, allowables: Allowables", "None"),
    "CustomObject.read_owner": ("", f"tuple[{ENTITY}, Identifier | str | int] | None"),
    "CustomObject.read_data_operations": ("", "DataOperationList | None"),
    "CustomObject.read_action": ("action: Identifier", "ActionDefinition | None"),
    "CustomObject.read_action_enabled": ("action: Identifier", "bool"),
    "CustomObject.read_action_visible": ("action: Identifier", "bool"),
    "CustomObject.run_action": ("action: Identifier", "str | None"),
    "CustomSession.create_entity": (f"type: EntityFullType, owner: Entity | None, owner_{ATTRIBUTE} | None", ENTITY),
    "CustomSession.delete_entity": ("entity: Entity", "None"),
    "CustomSession.get_object": ("entity: Entity", "CustomObject | None"),
    "CustomSession.list_entities": ("type: EntityFullType, query: str", "Iterable[Any]"),
    "CustomSession.find_entity": ("type: EntityFullType, name: str", f"{ENTITY} | None"),
    "CustomSession.list_owned": (f"owner: Entity, owner_{ATTRIBUTE}", "Iterable[Any]"),
    "CustomSession.find_owner": ("entity: Entity", f"tuple[{ENTITY}, Identifier | str | int] | None"),
    "CustomSession.make_entity": (f"type: EntityFullType, owner: Entity | None, owner_{ATTRIBUTE} | None", ENTITY),
    "CustomSession.find_entities": ("type: EntityFullType, query: str", "Iterable[Any]"),
    "Serializer.write_session": ("session: Session", "bytes"),
    "Serializer.read_session": ("data: bytes, session: Session", "None"),
    "Serializer.write_entities": ("entities: EntityListBag", "bytes"),
    "Serializer.read_entities": ("data: bytes", "EntityListBag"),
    "Serializer.write_entity": ("entity: Entity", "bytes"),
    "Serializer.read_entity": ("data: bytes", "Entity"),
    "Serializer.write_value": (f"entity: Entity, {ATTRIBUTE}", "bytes"),
    "Serializer.read_value": (f"data: bytes, entity: Entity, {ATTRIBUTE}", "None"),
}
# What the containers hold that signatures tell without it.
ITEMS = {
    "Allowables.bounds": "tuple[str, Any]",
    "Allowables.values": "tuple[Any, str]",
    "Content.__iter__": "Identifier",
    "Database.__iter__": "str",
    "EntityList.__iter__": "Entity",
    "EntityList.of": "Entity | Object",
    "EntityListBag.__init__": "EntityList",
    "EntityListBag.__iter__": "EntityFullType",
    "EntityListBag.values": "EntityList",
    "EntityListBag.items": "tuple[EntityFullType, EntityList]",
    "FormulaBag.__iter__": "EntityFullType",
    "FormulaBag.values": "Formula",
    "FormulaBag.items": "tuple[EntityFullType, Formula]",
    "Members.__iter__": "Identifier",
    "MetaobjectCollection.__init__": "Entity | Object",
    "MetaobjectCollection.__iter__": "Object",
    "Object.__iter__": "Identifier",
    "Session.objects": "Object",
    "TableSet.__iter__": "str",
    "Tabular.to_dict": "str, Any",
}
# Results and arguments that the module passes through Python itself.
PLAIN = {"object": "Any", "function": "Callable[..., Any]", "iterable": "Iterable[Any]", "iterator": "Iterator[Any]"}


def split(text: str) -> list[str]:
    """The arguments of a signature, at commas outside of brackets and quotes."""
    parts, depth, quote, part = [], 0, "", ""
    for letter in text:
        if quote:
            quote = "" if letter == quote else quote
        elif letter in "'\"":
            quote = letter
        elif letter in "[(<{":
            depth += 1
        elif letter in "])>}":
            depth -= 1
        elif letter == "," and depth == 0:
            parts.append(part.strip())
            part = ""
            continue
        part += letter
    return parts + [part.strip()] if part.strip() else parts


def annotate(text: str, is_argument: bool) -> str:
    """A type as pybind11 tells it, as a type of Python."""
    text = text.replace("qzdescriptor._core.", "").replace("qzdescriptor.", "")
    text = re.sub(r"\b(List|Tuple|Dict)\[", lambda found: found[1].lower() + "[", text)
    text = re.sub(r"numpy\.ndarray\[(.*?)\]", r"numpy.ndarray[Any, numpy.dtype[\1]]", text)
    text = re.sub(r"Optional\[(.*)\]$", r"\1 | None", text)
    for name, plain in PLAIN.items():
        text = re.sub(rf"(?<![\w.]){name}\b", plain, text)
    if is_argument:
        for name, also in ALSO.items():
            text = re.sub(rf"(?<![\w.\[]){name}\b(?! \| (?!None)| *\])", f"{name} | {also}", text)
    return text


def fill(lines: list[str], path: str) -> list[str]:
    """Says what the containers in the lines of a member hold."""
    items = ITEMS.get(path, "Any")
    return [re.sub(r"(?<=: |> )(list|dict|Iterable|Iterator)\b(?!\[)", rf"\1[{items}]", line) for line in lines]


def parameter(text: str) -> str:
    """One argument; what it is by default does not matter to a type checker."""
    text = re.sub(r"^(\w+): handle", r"\1: object", text)
    if text in ("*", "/") or text.startswith("*"):
        return text if ":" in text or text in ("*", "/") else f"{text}: Any"
    name, _, kind = text.partition(":")
    kind, _, default = kind.partition(" = ")
    return f"{name}: {annotate(kind.strip() or 'object', True)}" + (" = ..." if default else "")


def signatures(function) -> list[str]:
    """What the first lines of a docstring tell: one signature, or several that are numbered."""
    lines = (function.__doc__ or "").splitlines()
    numbered = [line.split(". ", 1)[1] for line in lines if re.match(r"^\d+\. \w+\(", line)]
    return numbered or lines[:1]


def hook(name: str, arguments: str, result: str, indent: str) -> str:
    taken = f"self, {arguments}, /" if arguments else "self"
    return f"{indent}def {name}({taken}) -> {result}: ..."


def methods(name: str, function, indent: str, is_static: bool) -> list[str]:
    written = []
    told = signatures(function)
    for signature in told:
        found = re.match(r"^\w+\((.*)\) -> (.*)$", signature)
        if found is None:
            raise ValueError(f"{name} tells no signature: {signature}")
        arguments = [parameter(argument) for argument in split(found[1])]
        if indent and not is_static:
            arguments = ["self"] + arguments[1:]
        result = "bool" if name == "__eq__" else annotate(found[2], False)
        if name == "__eq__":
            arguments = ["self", "other: object"]
        if len(told) > 1:
            written.append(f"{indent}@overload")
        if is_static:
            written.append(f"{indent}@staticmethod")
        written.append(f"{indent}def {name}({', '.join(arguments)}) -> {result}: ...")
    return written


def of_property(name: str, member: property, indent: str) -> list[str]:
    found = re.match(r".* -> (.*)$", (member.fget.__doc__ or "").splitlines()[0])
    kind = annotate(found[1], False) if found else "Any"
    written = [f"{indent}@property", f"{indent}def {name}(self) -> {kind}: ..."]
    if member.fset is not None:
        taken = parameter(split(signatures(member.fset)[0].split("(", 1)[1].rsplit(")", 1)[0])[1])
        written += [f"{indent}@{name}.setter",
                    f"{indent}def {name}(self, value: {taken.partition(': ')[2] or 'Any'}) -> None: ..."]
    return written


SPECIAL = {"__init__", "__len__", "__getitem__", "__setitem__", "__delitem__", "__contains__", "__iter__", "__eq__",
           "__hash__", "__lt__", "__le__", "__gt__", "__ge__", "__iadd__", "__isub__", "__bytes__", "__copy__", "__deepcopy__",
           "__enter__", "__exit__"}


def of_class(name: str, cls: type, indent: str) -> list[str]:
    if hasattr(cls, "__members__"):
        members = [f"{indent}    {member}: {cls.__qualname__}" for member in cls.__members__]
        return [f"{indent}class {name}:", f"{indent}    __members__: dict[str, {cls.__qualname__}]",
                f"{indent}    def __init__(self, value: int) -> None: ...",
                f"{indent}    def __int__(self) -> int: ...", *members]
    bases = [base.__name__ for base in cls.__bases__ if base.__name__ not in ("object", "pybind11_object")]
    written = [f"{indent}class {name}({', '.join(bases)}):" if bases else f"{indent}class {name}:"]
    inner = indent + "    "
    body = []
    for member_name, member in vars(cls).items():
        if member_name.startswith("_") and member_name not in SPECIAL:
            continue
        path = f"{name}.{member_name}"
        if path in HOOKS:
            body.append(hook(member_name, *HOOKS[path], inner))
        elif inspect.isclass(member):
            body = of_class(member_name, member, inner) + body
        elif isinstance(member, property):
            body += fill(of_property(member_name, member, inner), path)
        elif isinstance(member, staticmethod):
            body += fill(methods(member_name, member.__func__, inner, True), path)
        elif member is None:
            body.append(f"{inner}{member_name}: None  # type: ignore[assignment]")
        elif callable(member) and (member_name != "__init__" or member.__doc__ and "->" in member.__doc__):
            body += fill(methods(member_name, member, inner, False), path)
    return written + (body or [f"{inner}..."])


def main() -> None:
    lines = []
    known = sorted(qz.__all__)
    classes = [name for name in known if inspect.isclass(vars(qz)[name])]
    # Base classes come first.
    for name in sorted(classes, key=lambda name: (len(vars(qz)[name].__mro__), name)):
        lines += of_class(name, vars(qz)[name], "") + [""]
    for name in known:
        if name not in classes:
            member = vars(qz)[name]
            lines += methods(name, member, "", False) if callable(member) else [f"{name}: {type(member).__name__}"]
    text = "\n".join(lines) + "\n"
    TARGET.write_text(HEADER + text)


if __name__ == "__main__":
    main()
