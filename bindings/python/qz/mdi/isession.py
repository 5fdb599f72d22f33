"""The session that a script works on: `Session().get(Entity(...))`."""

from qzdescriptor import Session as _Handle
from qzdescriptor import get_script_registry as _get_registry
from qzdescriptor import get_script_session as _get_session


class Session:
    """The session of the object whose action is running, else the current one of the script registry; with a
    name, the session of that name in the script registry. It has every operation of `qzdescriptor.Session`."""

    def __new__(cls, name: str = "") -> _Handle:
        if not name:
            session = _get_session()
            if session is None:
                raise RuntimeError("there is no session for scripts: no action is running, and the script "
                                   "registry has no current session")
            return session
        registry = _get_registry()
        if registry is None:
            raise RuntimeError("there is no registry for scripts: see qzdescriptor.set_script_registry")
        session = registry.session(name)
        if session is None:
            raise RuntimeError(f"there is no session {name!r}, and the registry makes none of that name")
        return session


__all__ = ["Session"]
