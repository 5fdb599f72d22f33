#include "derived_object.h"

#include "asked.h"
#include "conversions.h"
#include "overrides.h"

namespace qzPython {

// --- what C++ asks ---------------------------------------------------------------------------------------

template <class Take, class... Argument>
bool DerivedObject::P_AskFor(Take&& take, char const* name, Argument const&... arguments) const {
    return AskOverride([this] { return GetSelf(); }, py::type::of<CustomObjectHandle>(), name, take,
                       arguments...);
}

template <class T, class... Argument>
bool DerivedObject::P_Ask(T& answer, char const* name, Argument const&... arguments) const {
    return P_AskFor([&](py::object const& given) { answer = given.cast<T>(); }, name, arguments...);
}

template <class Take, class... Argument>
std::optional<qzReturnStatus> DerivedObject::P_AskStatus(char const* failure, Take&& take, char const* name,
                                                         Argument const&... arguments) const {
    bool isOverridden = false;
    qzReturnStatus const status = RunOrRefuse(failure, [&] {
        py::object const self = GetSelf();
        py::object const method = FindOverride(self, py::type::of<CustomObjectHandle>(), name);
        isOverridden = static_cast<bool>(method);
        if (isOverridden)
            take(method(arguments...));
    });
    return isOverridden ? std::optional(status) : std::nullopt;
}

bool DerivedObject::GetAttributeIdentifiers(qzStlVector<Identifier>& identifiers) const {
    AskedObject const asked(*this);
    qzStlVector<Identifier> answer;
    if (!P_Ask(answer, "list_attributes"))
        return MemberObject::GetAttributeIdentifiers(identifiers);
    if (!answer.empty())
        identifiers = answer;
    return !answer.empty();
}

bool DerivedObject::GetActionIdentifiers(qzStlVector<Identifier>& identifiers) const {
    AskedObject const asked(*this);
    qzStlVector<Identifier> answer;
    if (!P_Ask(answer, "list_actions"))
        return MemberObject::GetActionIdentifiers(identifiers);
    if (!answer.empty())
        identifiers = answer;
    return !answer.empty();
}

bool DerivedObject::IsActionEnabled(Identifier const& action) const {
    AskedObject const asked(*this);
    bool is = false;
    return P_Ask(is, "read_action_enabled", action) ? is : MemberObject::IsActionEnabled(action);
}

bool DerivedObject::IsActionVisible(Identifier const& action) const {
    AskedObject const asked(*this);
    bool is = false;
    return P_Ask(is, "read_action_visible", action) ? is : MemberObject::IsActionVisible(action);
}

bool DerivedObject::P_GetActionData(Identifier const& action, ActionDefinition& definition) const {
    std::optional<ActionDefinition> answer;
    if (!P_Ask(answer, "read_action", action))
        return MemberObject::P_GetActionData(action, definition);
    if (answer)
        definition = *answer;
    return answer.has_value();
}

qzReturnStatus DerivedObject::InvokeAction(Identifier const& action) const {
    AskedObject const asked(*this);
    qzString message;
    auto const take = [&](py::object const& given) {
        if (!given.is_none())
            message = given.cast<qzString>();
    };
    auto const status = P_AskStatus("The action failed", take, "run_action", action);
    if (!status)
        return MemberObject::InvokeAction(action);
    return status->status == 0 ? qzReturnStatus{0, message} : *status;
}

// What is answered holds for the content from now on, which tests and converts by it.
Definition const* DerivedObject::GetDefinition(Identifier const& attribute) const {
    P_ReadDefinition(attribute);
    return MemberObject::GetDefinition(attribute); // none when the session ended with being asked
}

void DerivedObject::P_ReadDefinition(Identifier const& attribute) const {
    AskedObject const asked(*this);
    std::optional<Definition> answer;
    if (MemberObject::GetDefinition(attribute) != nullptr)
        P_Ask(answer, "read_definition", attribute);
    Definition const* const current = MemberObject::GetDefinition(attribute);
    if (answer && current != nullptr && !(*answer == *current))
        P_GetContent().ReplaceDefinition(P_FindIndex(attribute), std::make_shared<Definition const>(*answer));
}

// These two ask several times.
bool DerivedObject::SetAllowables(Identifier const& attribute, Allowables const& allowables) {
    AskedObject const asked(*this);
    return MemberObject::SetAllowables(attribute, allowables);
}

qzReturnStatus DerivedObject::SetValue(Identifier const& attribute, Value const& value) const {
    AskedObject const asked(*this);
    return MemberObject::SetValue(attribute, value);
}

bool DerivedObject::GetAllowables(Identifier const& attribute, Allowables& allowables) const {
    AskedObject const asked(*this);
    std::optional<Allowables> answer;
    if (!P_Ask(answer, "read_allowables", attribute))
        return MemberObject::GetAllowables(attribute, allowables);
    if (answer)
        allowables = *answer;
    return answer.has_value();
}

bool DerivedObject::P_SetAllowables(Identifier const& attribute, Allowables const& allowables) {
    auto const take = [](py::object const&) {};
    auto const status = P_AskStatus("", take, "write_allowables", attribute, allowables);
    return status ? status->status == 0 : MemberObject::P_SetAllowables(attribute, allowables);
}

template <class Key>
bool DerivedObject::P_GetValueOf(Key const& attribute, ValuePtr const*& value) const {
    ValuePtr const* read = nullptr;
    bool isRead = false;
    {
        AskedObject const asked(*this);
        isRead = MemberObject::GetValue(attribute, read);
    }
    isRead = isRead && P_IsAlive();
    if (isRead)
        value = read;
    return isRead;
}

bool DerivedObject::GetValue(Identifier const& attribute, ValuePtr const*& value) const {
    return P_GetValueOf(attribute, value);
}

bool DerivedObject::GetValue(unsigned int attributeHandle, ValuePtr const*& value) const {
    return P_GetValueOf(attributeHandle, value);
}

// A value that is what was read before stays where it is, and views of it stay good.
bool DerivedObject::P_Read(unsigned int index) const {
    Definition const* const definition = GetDefinition(P_Identify(index));
    if (definition == nullptr)
        return false;
    TypeSpec const type = TypeSpec::Of(*definition);
    Content& content = P_GetContent();
    return RunOrReport([&] {
        py::object const self = GetSelf(); // which may let go of this object
        py::object const data = self.attr("read_value")(P_Identify(index));
        Value read; // empty: the default
        if (!data.is_none())
            read = TakeData(type, data);
        Value held;
        bool const isSame =
            data.is_none() ? !content.IsSet(index) : content.GetValue(index, held) && held == read;
        if (!isSame)
            content.SetValueUnchecked(index, std::move(read));
    });
}

qzReturnStatus DerivedObject::P_Write(unsigned int index, Value const& value) const {
    return RunOrRefuse("The value could not be written", [&] {
        py::object const self = GetSelf();
        self.attr("write_value")(P_Identify(index), GiveData(value.GetValuePtr()));
    });
}

bool DerivedObject::GetValueAsString(Identifier const& attribute, qzString& text,
                                     qzString const& format) const {
    AskedObject const asked(*this);
    std::optional<qzString> answer;
    if (!P_Ask(answer, "read_text", attribute, format))
        return MemberObject::GetValueAsString(attribute, text, format);
    if (answer)
        text = *answer;
    return answer.has_value();
}

qzReturnStatus DerivedObject::SetValueFromString(Identifier const& attribute, qzString const& text,
                                                 qzString const& format) const {
    AskedObject const asked(*this);
    auto const take = [](py::object const&) {};
    auto const status =
        P_AskStatus("The value could not be written", take, "write_text", attribute, text, format);
    return status ? *status : MemberObject::SetValueFromString(attribute, text, format);
}

DisplayStatus DerivedObject::GetDisplayStatus(Identifier const& attribute) const {
    AskedObject const asked(*this);
    int status = DS_DEFAULT;
    return P_Ask(status, "read_display_status", attribute) ? static_cast<DisplayStatus>(status)
                                                           : MemberObject::GetDisplayStatus(attribute);
}

bool DerivedObject::SetDisplayStatus(Identifier const& attribute, DisplayStatus status) const {
    AskedObject const asked(*this);
    auto const take = [](py::object const&) {};
    auto const written = P_AskStatus("", take, "write_display_status", attribute, static_cast<int>(status));
    return written ? written->status == 0 : MemberObject::SetDisplayStatus(attribute, status);
}

bool DerivedObject::GetOwner(Entity& owner, Identifier& ownerAttribute) const {
    AskedObject const asked(*this);
    bool is = false;
    auto const take = [&](py::object const& given) {
        is = !given.is_none();
        if (!is)
            return;
        auto const [object, attribute] = given.cast<std::pair<py::object, Identifier>>();
        owner = ToEntity(object);
        ownerAttribute = attribute;
    };
    return P_AskFor(take, "read_owner") ? is : MemberObject::GetOwner(owner, ownerAttribute);
}

qzString DerivedObject::GetName() const {
    AskedObject const asked(*this);
    qzString name;
    RunOrReport([&] {
        py::object const self = GetSelf();
        name = self.attr("read_name")().cast<qzString>();
    });
    return name;
}

bool DerivedObject::GetDataOperations(DataOperationList& operations) const {
    AskedObject const asked(*this);
    std::optional<DataOperationList> answer;
    if (!P_Ask(answer, "read_data_operations") || !answer)
        return false;
    operations = *answer;
    return true;
}

bool DerivedObject::IsValid() const {
    AskedObject const asked(*this);
    bool is = false;
    return P_IsAlive() && (P_Ask(is, "read_is_valid") ? is : true);
}

// --- the module ------------------------------------------------------------------------------------------

namespace {

using Class = py::class_<CustomObjectHandle, ObjectHandle>;

void BeginObject(py::detail::value_and_holder& instance, SessionHandle const& session, Entity const& entity) {
    instance.value_ptr() =
        new CustomObjectHandle(std::make_unique<DerivedObject>(session, entity, SelfOf(instance)));
}

void BindData(Class& object) {
    object
        .def(
            "read_value",
            [](py::object const&, py::args const&) { RaiseToBeWritten("read_value(attribute)"); },
            "To be overridden: (attribute) -> the value, or None for the default.")
        .def(
            "write_value",
            [](py::object const&, py::args const&) { RaiseToBeWritten("write_value(attribute, value)"); },
            "To be overridden: (attribute, value) -> None. Raise Refused to refuse.")
        .def(
            "read_name", [](py::object const&) { return ""; }, "May be overridden: () -> the object's name.")
        .def(
            "read_text",
            [](CustomObjectHandle const& self, Identifier const& attribute, qzString const& format) {
                qzString text;
                bool const has = self.GetOwn().MemberObject::GetValueAsString(attribute, text, format);
                return has ? std::optional(text) : std::nullopt;
            },
            py::arg("attribute"), py::arg("format") = "",
            "May be overridden, as all that follow: -> the value as text, or None.")
        .def(
            "write_text",
            [](CustomObjectHandle const& self, Identifier const& attribute, qzString const& text,
               qzString const& format) {
                Check(self.GetOwn().MemberObject::SetValueFromString(attribute, text, format));
            },
            py::arg("attribute"), py::arg("text"), py::arg("format") = "")
        .def(
            "read_display_status",
            [](CustomObjectHandle const& self, Identifier const& attribute) {
                return static_cast<int>(self.GetOwn().MemberObject::GetDisplayStatus(attribute));
            },
            py::arg("attribute"))
        .def(
            "write_display_status",
            [](CustomObjectHandle const& self, Identifier const& attribute, int status) {
                Check(self.GetOwn().MemberObject::SetDisplayStatus(attribute,
                                                                   static_cast<DisplayStatus>(status)),
                      "the object has no such attribute");
            },
            py::arg("attribute"), py::arg("status"));
}

void BindDescriptions(Class& object) {
    object
        .def(
            "list_attributes",
            [](CustomObjectHandle const& self) {
                qzStlVector<Identifier> identifiers;
                self.GetOwn().MemberObject::GetAttributeIdentifiers(identifiers);
                return identifiers;
            },
            "-> the identifiers of those attributes of the metaclass that this object has.")
        .def(
            "read_definition",
            [](CustomObjectHandle const& self, Identifier const& attribute) -> std::optional<Definition> {
                Definition const* const definition = self.GetOwn().GetSharedDefinition(attribute);
                return definition != nullptr ? std::optional(*definition) : std::nullopt;
            },
            py::arg("attribute"),
            "-> what an attribute of this object is, by which values are tested; by itself, what it is in "
            "the "
            "metaclass.")
        .def(
            "read_allowables",
            [](CustomObjectHandle const& self, Identifier const& attribute) -> std::optional<Allowables> {
                Allowables allowables;
                bool const has = self.GetOwn().MemberObject::GetAllowables(attribute, allowables);
                return has ? std::optional(allowables) : std::nullopt;
            },
            py::arg("attribute"))
        .def(
            "write_allowables",
            [](CustomObjectHandle const& self, Identifier const& attribute, Allowables const& allowables) {
                Check(self.GetOwn().StoreAllowables(attribute, allowables),
                      "the object has no such attribute");
            },
            py::arg("attribute"), py::arg("allowables"))
        .def(
            "read_owner",
            [](CustomObjectHandle const& self) -> std::optional<std::pair<Entity, Identifier>> {
                std::pair<Entity, Identifier> owner;
                bool const has = self.GetOwn().MemberObject::GetOwner(owner.first, owner.second);
                return has ? std::optional(owner) : std::nullopt;
            },
            "-> (owner, owner attribute), or None.")
        .def(
            "read_data_operations", [](CustomObjectHandle const&) { return py::none(); },
            "-> the menu of operations on this object, or None.")
        .def(
            "read_is_valid",
            [](CustomObjectHandle const& self) { return self.GetOwn().MemberObject::IsValid(); },
            "-> False once the entity is gone.");
}

void BindActions(Class& object) {
    object
        .def("list_actions",
             [](CustomObjectHandle const& self) {
                 qzStlVector<Identifier> identifiers;
                 self.GetOwn().MemberObject::GetActionIdentifiers(identifiers);
                 return identifiers;
             })
        .def(
            "read_action",
            [](CustomObjectHandle const& self, Identifier const& action) -> std::optional<ActionDefinition> {
                ActionDefinition definition;
                bool const has = self.GetOwn().FindAction(action, definition);
                return has ? std::optional(definition) : std::nullopt;
            },
            py::arg("action"), "-> the ActionDefinition of an action, or None.")
        .def(
            "read_action_enabled",
            [](CustomObjectHandle const& self, Identifier const& action) {
                return self.GetOwn().MemberObject::IsActionEnabled(action);
            },
            py::arg("action"))
        .def(
            "read_action_visible",
            [](CustomObjectHandle const& self, Identifier const& action) {
                return self.GetOwn().MemberObject::IsActionVisible(action);
            },
            py::arg("action"))
        .def(
            "run_action",
            [](CustomObjectHandle const& self, Identifier const& action) {
                qzReturnStatus const status = self.GetOwn().MemberObject::InvokeAction(action);
                Check(status);
                return status.message;
            },
            py::arg("action"), "-> the action's message, or None. Raise Refused to fail.");
}

} // namespace

void BindDerivedObject(py::module_& module) {
    Class object(
        module, "CustomObject",
        "An object whose values are kept in Python. Derive from it and override the methods below. Its "
        "attributes are those of its metaclass; values are tested before they come to write_value.");
    object.def("__init__", &BeginObject, py::detail::is_new_style_constructor(), py::arg("session"),
               py::arg("entity"));
    BindData(object);
    BindDescriptions(object);
    BindActions(object);
}

} // namespace qzPython
