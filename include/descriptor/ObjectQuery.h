#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"
#include "qzutl/qzString.h"
#include "selexpr/explain.h"

#include <memory>
#include <vector>

namespace qzDescriptor {

/// A query that is read once and asked of many objects of one type or its descendants: what
/// `ISession::Collect` filters with, for sessions that know a faster way to their objects.
///
///     ObjectQuery const thick(session, EntityFullType("Ply"), "T > 0.002");
///     for (Metaobject const* const ply : plies)
///         count += thick.Matches(ply) ? 1 : 0;
///
/// It refers to the session and its registry, and is good until a metaclass changes. Any number of threads
/// may ask it while nothing changes.
class QZDESCRIPTOR_API ObjectQuery {
public:
    ObjectQuery(ISession const& session, EntityFullType const& type, qzString const& text);
    ObjectQuery(ObjectQuery const&) = delete;
    ObjectQuery& operator=(ObjectQuery const&) = delete;
    ~ObjectQuery();

    /// False for a text that cannot be read, an empty one included, which no object matches.
    bool IsValid() const { return m_request != nullptr; }
    /// Why the text cannot be read, or which attribute the type does not have; empty when it is right.
    qzString GetProblem() const;
    /// The names in the text that are no attributes of the type, in their order.
    std::vector<qzString> const& GetUnknown() const;
    /// The handles of the attributes that are read, in the order of the conditions.
    std::vector<unsigned int> const& GetAttributes() const;

    /// Null is an object without any value.
    bool Matches(Metaobject const* object) const;
    /// The same of the object with this id whose values these are, without a detour by the object. The
    /// content is of the type itself, not of a descendant.
    bool Matches(Content const& content, unsigned int id) const;
    /// Which conditions decide about an object; nothing when the text cannot be read.
    ui::selexpr::Explanation Explain(Metaobject const* object) const;

private:
    struct Reader;

    std::unique_ptr<Reader> m_reader;
    std::unique_ptr<ui::selexpr::IRequest const> m_request;
};

} // namespace qzDescriptor
