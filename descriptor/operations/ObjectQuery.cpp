#include "descriptor/ObjectQuery.h"

#include "descriptor/QueryParser.h"
#include "operations/TypeDataInterface.h"
#include "selexpr/IRequest.h"

namespace qzDescriptor {

struct ObjectQuery::Reader {
    Reader(ISession const& session, EntityFullType const& type)
        : typeName(type.GetTypeNamed()),
          data(session, type),
          parser(&data, const_cast<ISession*>(&session), type) {}

    qzString typeName;
    TypeDataInterface data;
    QueryParser parser;
};

ObjectQuery::ObjectQuery(ISession const& session, EntityFullType const& type, qzString const& text)
    : m_reader(std::make_unique<Reader>(session, type)), m_request(m_reader->parser.Parse(text)) {}

ObjectQuery::~ObjectQuery() = default;

qzString ObjectQuery::GetProblem() const {
    if (!IsValid())
        return m_reader->parser.GetError().message;
    bool const isKnown = GetUnknown().empty();
    return isKnown ? qzString() : "'" + GetUnknown().front() + "' is no attribute of " + m_reader->typeName;
}

std::vector<qzString> const& ObjectQuery::GetUnknown() const { return m_reader->data.GetUnknown(); }

std::vector<unsigned int> const& ObjectQuery::GetAttributes() const { return m_reader->data.GetAttributes(); }

bool ObjectQuery::Matches(Metaobject const* object) const {
    QuerySubject subject{object};
    return IsValid() && m_request->Matches(&subject);
}

bool ObjectQuery::Matches(Content const& content, unsigned int id) const {
    QuerySubject subject{nullptr, &content, id};
    return IsValid() && m_request->Matches(&subject);
}

ui::selexpr::Explanation ObjectQuery::Explain(Metaobject const* object) const {
    QuerySubject subject{object};
    return IsValid() ? ui::selexpr::Explain(*m_request, &subject) : ui::selexpr::Explanation();
}

} // namespace qzDescriptor
