#include "handles.h"
#include "overrides.h"

#include "descriptor/ISerializer.h"
#include "descriptor/MemoryBuffer.h"

namespace qzPython {

namespace {

py::bytes GiveBytes(MemoryBuffer const& buffer) {
    std::string bytes(buffer.GetBufferLength(), '\0');
    buffer.GetBuffer(bytes.data(), bytes.size());
    return py::bytes(bytes);
}

/// Puts what a method wrote into a buffer. Only bytes-like objects are taken: a text has no form of its own.
void TakeBytes(py::object const& given, MemoryBuffer& buffer) {
    auto const bytes = py::reinterpret_steal<py::bytes>(
        PyObject_CheckBuffer(given.ptr()) != 0 ? PyBytes_FromObject(given.ptr()) : nullptr);
    if (!bytes) {
        ClearRefusal();
        throw py::type_error("bytes are expected");
    }
    std::string_view const view = bytes;
    buffer.SetBuffer(view.data(), view.size());
}

/// A serializer that is written in Python: C++ calls the methods of its class.
class DerivedSerializer final : public ISerializer {
public:
    bool SerializeSession(ISession const& session, MemoryBuffer& buffer) override {
        auto const work = [&](py::object const& write) {
            // A handle is for those who may write, too: there is one kind of them.
            TakeBytes(write(GiveSession(const_cast<ISession*>(&session))), buffer);
        };
        return P_Run("write_session", work);
    }
    bool DeserializeSession(MemoryBuffer const& buffer, ISession& session) override {
        auto const work = [&](py::object const& read) { read(GiveBytes(buffer), GiveSession(&session)); };
        return P_Run("read_session", work);
    }
    bool SerializeEntities(EntityListBag const& entities, MemoryBuffer& buffer) override {
        auto const work = [&](py::object const& write) { TakeBytes(write(entities), buffer); };
        return P_Run("write_entities", work);
    }
    bool DeserializeEntities(MemoryBuffer const& buffer, EntityListBag& created) override {
        auto const work = [&](py::object const& read) {
            created = read(GiveBytes(buffer)).cast<EntityListBag const&>();
        };
        return P_Run("read_entities", work);
    }
    bool SerializeEntity(Entity const& entity, MemoryBuffer& buffer) override {
        auto const work = [&](py::object const& write) { TakeBytes(write(entity), buffer); };
        return P_Run("write_entity", work);
    }
    bool DeserializeEntity(MemoryBuffer const& buffer, Entity& created) override {
        auto const work = [&](py::object const& read) { created = ToEntity(read(GiveBytes(buffer))); };
        return P_Run("read_entity", work);
    }
    bool SerializeValue(Entity const& entity, Identifier const& attribute, MemoryBuffer& buffer) override {
        auto const work = [&](py::object const& write) { TakeBytes(write(entity, attribute), buffer); };
        return P_Run("write_value", work);
    }
    bool DeserializeValue(MemoryBuffer const& buffer, Entity const& entity,
                          Identifier const& attribute) override {
        auto const work = [&](py::object const& read) { read(GiveBytes(buffer), entity, attribute); };
        return P_Run("read_value", work);
    }
    Version GetVersion() const override {
        Version version;
        P_Ask("form_version", [&](py::object const& ask) { version = ask().cast<Version>(); });
        return version;
    }
    bool CanRead(Version const& version) const override {
        bool can = false;
        P_Ask("reads_version", [&](py::object const& ask) { can = ask(version).cast<bool>(); });
        return can;
    }
    bool Recognizes(MemoryBuffer const& buffer) const override {
        bool does = false;
        P_Ask("recognizes_bytes", [&](py::object const& ask) { does = ask(GiveBytes(buffer)).cast<bool>(); });
        return does;
    }
    qzString GetFailureMessage() const override { return m_failure; }

private:
    py::object P_FindMethod(char const* name) const {
        return py::cast(static_cast<ISerializer const*>(this), py::return_value_policy::reference).attr(name);
    }
    template <class Work>
    bool P_Run(char const* name, Work const& work) {
        qzReturnStatus const status = RunOrRefuse("The serializer failed", [&] { work(P_FindMethod(name)); });
        m_failure = status.message;
        return status.status == 0;
    }
    template <class Work>
    void P_Ask(char const* name, Work const& work) const {
        RunOrReport([&] { work(P_FindMethod(name)); });
    }

    qzString m_failure;
};

using Class = py::class_<ISerializer, DerivedSerializer>;

/// Raises the message of a failure.
void CheckDone(ISerializer const& self, bool isDone) {
    if (!isDone)
        throw Refused(self.GetFailureMessage());
}

MemoryBuffer* Fill(MemoryBuffer& buffer, py::bytes const& bytes) {
    std::string_view const view = bytes;
    buffer.SetBuffer(view.data(), view.size());
    return &buffer;
}

void BindCalls(Class& serializer) {
    serializer
        .def(
            "serialize_session",
            [](ISerializer& self, SessionHandle const& session) {
                MemoryBuffer buffer;
                CheckDone(self, self.SerializeSession(session.Get(), buffer));
                return GiveBytes(buffer);
            },
            py::arg("session"), "All of a session, as bytes. Raises Refused when it fails, as the others do.")
        .def(
            "deserialize_session",
            [](ISerializer& self, py::bytes const& data, SessionHandle const& session) {
                MemoryBuffer buffer;
                CheckDone(self, self.DeserializeSession(*Fill(buffer, data), session.Get()));
            },
            py::arg("data"), py::arg("session"))
        .def(
            "serialize_entities",
            [](ISerializer& self, EntityListBag const& entities) {
                MemoryBuffer buffer;
                CheckDone(self, self.SerializeEntities(entities, buffer));
                return GiveBytes(buffer);
            },
            py::arg("entities"), "The entities of a bag and what they own.")
        .def(
            "deserialize_entities",
            [](ISerializer& self, py::bytes const& data) {
                MemoryBuffer buffer;
                EntityListBag created;
                CheckDone(self, self.DeserializeEntities(*Fill(buffer, data), created));
                return created;
            },
            py::arg("data"), "-> the entities that were created.")
        .def(
            "serialize_entity",
            [](ISerializer& self, py::object const& entity) {
                MemoryBuffer buffer;
                CheckDone(self, self.SerializeEntity(ToEntity(entity), buffer));
                return GiveBytes(buffer);
            },
            py::arg("entity"))
        .def(
            "deserialize_entity",
            [](ISerializer& self, py::bytes const& data) {
                MemoryBuffer buffer;
                Entity created;
                CheckDone(self, self.DeserializeEntity(*Fill(buffer, data), created));
                return created;
            },
            py::arg("data"))
        .def(
            "serialize_value",
            [](ISerializer& self, py::object const& entity, Identifier const& attribute) {
                MemoryBuffer buffer;
                CheckDone(self, self.SerializeValue(ToEntity(entity), attribute, buffer));
                return GiveBytes(buffer);
            },
            py::arg("entity"), py::arg("attribute"))
        .def(
            "deserialize_value",
            [](ISerializer& self, py::bytes const& data, py::object const& entity,
               Identifier const& attribute) {
                MemoryBuffer buffer;
                CheckDone(self, self.DeserializeValue(*Fill(buffer, data), ToEntity(entity), attribute));
            },
            py::arg("data"), py::arg("entity"), py::arg("attribute"))
        .def_property_readonly("version", &ISerializer::GetVersion, "The form in which it writes.")
        .def("can_read", &ISerializer::CanRead, py::arg("version"))
        .def(
            "recognizes",
            [](ISerializer const& self, py::bytes const& data) {
                MemoryBuffer buffer;
                return self.Recognizes(*Fill(buffer, data));
            },
            py::arg("data"), "Whether bytes look like something that it wrote.")
        .def_property_readonly("failure_message", &ISerializer::GetFailureMessage,
                               "Why the last operation failed.");
}

/// A method that a derived class has to put in the place of this one, for those operations that it knows.
void BindHook(Class& serializer, char const* name, char const* doc) {
    serializer.def(
        name, [name](py::object const&, py::args const&) -> py::object { RaiseToBeWritten(name); }, doc);
}

void BindHooks(Class& serializer) {
    BindHook(serializer, "write_session", "To be overridden: (session) -> bytes.");
    BindHook(serializer, "read_session", "To be overridden: (data, session) -> None.");
    BindHook(serializer, "write_entities", "To be overridden: (entities, an EntityListBag) -> bytes.");
    BindHook(serializer, "read_entities",
             "To be overridden: (data) -> the EntityListBag of what was created.");
    BindHook(serializer, "write_entity", "To be overridden: (entity) -> bytes.");
    BindHook(serializer, "read_entity", "To be overridden: (data) -> the Entity that was created.");
    BindHook(serializer, "write_value", "To be overridden: (entity, attribute) -> bytes.");
    BindHook(serializer, "read_value", "To be overridden: (data, entity, attribute) -> None.");
    serializer
        .def(
            "form_version", [](py::object const&) { return Version(); },
            "May be overridden: () -> the Version of the form that it writes.")
        .def(
            "reads_version",
            [](py::object const& self, Version const& version) {
                return self.attr("form_version")().cast<Version>() == version;
            },
            py::arg("version"), "May be overridden: by itself only the form that it writes is read.")
        .def(
            "recognizes_bytes", [](py::object const&, py::bytes const&) { return false; }, py::arg("data"),
            "May be overridden: whether bytes look like something that it wrote.");
}

} // namespace

void BindSerializers(py::module_& module) {
    Class serializer(
        module, "Serializer",
        "Writes the data of sessions into bytes and reads them back. Derive from it and override the methods "
        "write_... and read_... that you need; C++ and the methods serialize_... call them. What they raise, "
        "other than Refused, is reported and counts as a failure.");
    serializer.def(py::init_alias<>());
    BindCalls(serializer);
    BindHooks(serializer);
}

} // namespace qzPython
