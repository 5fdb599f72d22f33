#include "descriptor/DataOperation.h"

#include "operations/DataOperationPrivate.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace qzDescriptor {

namespace {

using Body = DataOperationPrivate;

/// Ends a body, and after it one by one those that it was the last to hold: menus may be nested deeper than
/// the stack reaches.
void EndBody(Body* body) noexcept {
    thread_local constinit Body* s_toEnd = nullptr;
    thread_local constinit bool s_ending = false;
    body->nextToEnd = s_toEnd;
    s_toEnd = body;
    if (s_ending)
        return;
    s_ending = true;
    while (s_toEnd != nullptr)
        delete std::exchange(s_toEnd, s_toEnd->nextToEnd);
    s_ending = false;
}

std::shared_ptr<Body const> MakeBody(Body&& fields) { return {new Body(std::move(fields)), EndBody}; }

bool HaveEqualTexts(Body const& a, Body const& b) {
    auto const fields = [](Body const& body) {
        return std::tie(body.displayName, body.operation, body.functionName, body.enabled, body.iconFilePath);
    };
    return fields(a) == fields(b);
}

struct Keyword {
    std::string_view text;
    DataOperation::Operation operation;
    char const* displayName;
};

constexpr Keyword s_keywords[] = {
    {"new", DataOperation::OPERATION_NEW, "New"},
    {"create", DataOperation::OPERATION_CREATE, "Create"},
    {"duplicate", DataOperation::OPERATION_DUPLICATE, "Duplicate"},
    {"delete", DataOperation::OPERATION_DELETE, "Delete"},
    {"remove", DataOperation::OPERATION_REMOVE, "Remove"},
    {"edit", DataOperation::OPERATION_EDIT, "Edit"},
    {"review", DataOperation::OPERATION_REVIEW, "Review"},
    {"show", DataOperation::OPERATION_SHOW, "Show"},
    {"hide", DataOperation::OPERATION_HIDE, "Hide"},
    {"isolate", DataOperation::OPERATION_ISOLATE, "Isolate"},
    {"isolateonly", DataOperation::OPERATION_ISOLATE_ONLY, "Isolate only"},
    {"parameterize", DataOperation::OPERATION_PARAMETERIZE, "Parameterize"},
    {"unparameterize", DataOperation::OPERATION_UNPARAMETERIZE, "Unparameterize"},
    {"list", DataOperation::OPERATION_LIST, ""},
    {"none", DataOperation::OPERATION_SEPARATOR, ""},
    {"separator", DataOperation::OPERATION_SEPARATOR, ""},
};

constexpr char ToLowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

} // namespace

DataOperation::DataOperation(qzString const& displayName, qzString const& functionName, bool enabled,
                             qzString const& iconFilePath)
    : m_private(MakeBody({displayName, OPERATION_CUSTOM, functionName, {}, enabled, iconFilePath})) {}

DataOperation::DataOperation(qzString const& displayName, DataOperationList const& list, bool enabled,
                             qzString const& iconFilePath)
    : m_private(MakeBody({displayName, OPERATION_LIST, {}, list, enabled, iconFilePath})) {}

DataOperation::DataOperation(qzString const& displayName, Operation operation, bool enabled,
                             qzString const& iconFilePath) {
    if (operation != OPERATION_CUSTOM && operation != OPERATION_LIST)
        m_private = MakeBody({displayName, operation, {}, {}, enabled, iconFilePath});
}

DataOperation::Operation DataOperation::GetOperation() const {
    return m_private ? m_private->operation : OPERATION_SEPARATOR;
}

bool DataOperation::IsEnabled() const { return !m_private || m_private->enabled; }

qzString DataOperation::GetDisplayName() const { return m_private ? m_private->displayName : qzString(); }

qzString DataOperation::GetIconFilePath() const { return m_private ? m_private->iconFilePath : qzString(); }

bool DataOperation::GetFunctionName(qzString& functionName) const {
    if (!m_private)
        return false;
    functionName = m_private->functionName;
    return true;
}

bool DataOperation::GetDataOperationList(DataOperationList& list) const {
    auto const body = m_private; // this entry may be part of the list
    if (!body)
        return false;
    list = body->list;
    return true;
}

bool DataOperation::OperationFromString(qzString const& text, Operation& operation, qzString& displayName) {
    auto const keyword = std::ranges::find_if(s_keywords, [&](Keyword const& candidate) {
        return std::ranges::equal(text, candidate.text, {}, ToLowerAscii);
    });
    if (keyword == std::end(s_keywords))
        return false;
    operation = keyword->operation;
    displayName = keyword->displayName;
    return true;
}

bool operator==(DataOperation const& a, DataOperation const& b) {
    std::vector<std::pair<Body const*, Body const*>> toCompare = {{a.m_private.get(), b.m_private.get()}};
    while (!toCompare.empty()) {
        auto const [left, right] = toCompare.back();
        toCompare.pop_back();
        if (left == right)
            continue;
        if (left == nullptr || right == nullptr || !HaveEqualTexts(*left, *right) ||
            left->list.GetCount() != right->list.GetCount())
            return false;
        for (unsigned int i = 0; i < left->list.GetCount(); ++i)
            toCompare.emplace_back(left->list.Get(i).m_private.get(), right->list.Get(i).m_private.get());
    }
    return true;
}

} // namespace qzDescriptor
