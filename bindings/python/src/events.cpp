#include "copies.h"
#include "handles.h"

#include "descriptor/qzSigSlotHandler.h"

namespace qzPython {

namespace {

/// `Connection` in Python.
class EventConnection {
public:
    explicit EventConnection(qzSigSlotHandler::EntityEventSignal::Connection connection)
        : m_connection(std::move(connection)) {}

    void Disconnect() { m_connection.Disconnect(); }
    bool IsConnected() const { return m_connection.IsConnected(); }

private:
    qzSigSlotHandler::EntityEventSignal::Connection m_connection;
};

EventConnection OnEvent(SessionHandle const& session, py::object function) {
    Kept const kept = KeepFunction(std::move(function));
    return EventConnection(session.Get().GetSigSlotHandler()->GetEntityEventSignal()->Connect(
        [kept](EntityEventInfo const& event) { RunOrReport([&] { kept.Get()(event); }); }));
}

void OnEnd(SessionHandle const& session, py::object function) {
    session.Get();
    session.GetToken()->AddEndListener(KeepFunction(std::move(function)));
}

} // namespace

void BindEvents(py::module_& module) {
    py::class_<EntityEventInfo> info(module, "EntityEventInfo",
                                     "Something that happened to entities of one type.");
    BindCopy<EntityEventInfo>(info);
    info.def(py::init([](int type, EntityFullType const& entityType, qzStlVector<unsigned int> const& ids,
                         Identifier const& identifier) {
                 EntityEventInfo event;
                 event.SetEventType(static_cast<ENTITY_EVENT_TYPE>(type));
                 event.SetEntityType(entityType);
                 event.AddEntityIdList(ids);
                 event.SetIdentifier(identifier);
                 return event;
             }),
             py::arg("event_type") = static_cast<int>(ENTITY_EVENT_NONE),
             py::arg("entity_type") = EntityFullType(), py::arg("ids") = qzStlVector<unsigned int>(),
             py::arg("identifier") = Identifier())
        .def_property(
            "event_type", [](EntityEventInfo const& self) { return static_cast<int>(self.GetEventType()); },
            [](EntityEventInfo& self, int type) { self.SetEventType(static_cast<ENTITY_EVENT_TYPE>(type)); },
            "One of the EVENT_ codes, or one of the application's own, from EVENT_APPLICATION on.")
        .def_property("entity_type", &EntityEventInfo::GetEntityType, &EntityEventInfo::SetEntityType)
        .def_property("identifier", &EntityEventInfo::GetIdentifier, &EntityEventInfo::SetIdentifier,
                      "The attribute concerned; empty when the event is about whole entities.")
        .def_property(
            "ids",
            [](EntityEventInfo const& self) {
                qzStlVector<unsigned int> ids;
                self.GetEntityIdList(ids);
                return ids;
            },
            [](EntityEventInfo& self, qzStlVector<unsigned int> const& ids) {
                EntityEventInfo event;
                event.SetEventType(self.GetEventType());
                event.SetEntityType(self.GetEntityType());
                event.SetIdentifier(self.GetIdentifier());
                event.AddEntityIdList(ids);
                self = event;
            })
        .def(
            "__eq__", [](EntityEventInfo const& a, EntityEventInfo const& b) { return a == b; },
            py::is_operator())
        .def("__repr__", [](EntityEventInfo const& self) {
            qzStlVector<unsigned int> ids;
            self.GetEntityIdList(ids);
            return py::str("<EntityEventInfo {} of {} {}>")
                .format(static_cast<int>(self.GetEventType()), GiveText(self.GetEntityType().GetTypeNamed()),
                        ids);
        });
    module.attr("EVENT_NONE") = static_cast<int>(ENTITY_EVENT_NONE);
    module.attr("EVENT_CREATED") = static_cast<int>(ENTITY_EVENT_CREATED);
    module.attr("EVENT_CHANGED") = static_cast<int>(ENTITY_EVENT_CHANGED);
    module.attr("EVENT_DELETED") = static_cast<int>(ENTITY_EVENT_DELETED);
    module.attr("EVENT_OWNER_CHANGED") = static_cast<int>(ENTITY_EVENT_OWNER_CHANGED);
    module.attr("EVENT_APPLICATION") = static_cast<int>(ENTITY_EVENT_APPLICATION);

    py::class_<EventConnection>(module, "Connection", "A function that listens to the events of a session.")
        .def("disconnect", &EventConnection::Disconnect,
             "It is not called any more, not even by an event that is "
             "under way.")
        .def_property_readonly("is_connected", &EventConnection::IsConnected);

    auto session = py::reinterpret_borrow<py::class_<SessionHandle>>(module.attr("Session"));
    session
        .def("on_event", &OnEvent, py::arg("function"),
             "Calls the function with an EntityEventInfo for everything that happens to entities. What it "
             "raises is reported.")
        .def("on_end", &OnEnd, py::arg("function"),
             "Calls the function, without arguments, when the session is about to end.")
        .def(
            "emit",
            [](SessionHandle const& self, EntityEventInfo const& event) {
                self.Get().GetSigSlotHandler()->Emit(EVENT_CATEGORY_ENTITY, event);
            },
            py::arg("event"), "Tells the listeners of an event of the application's own.")
        .def(
            "buffer_start", [](SessionHandle const& self) { self.Get().GetSigSlotHandler()->BufferStart(); },
            "From here on events are held back.")
        .def(
            "buffer_stop", [](SessionHandle const& self) { self.Get().GetSigSlotHandler()->BufferStop(); },
            "From here on events are told at once again; those that were held back are not.")
        .def(
            "flush", [](SessionHandle const& self) { self.Get().GetSigSlotHandler()->Flush(); },
            "Tells every event that was ever held back, in order. They stay: the next call tells them "
            "again.");
}

} // namespace qzPython
