#include "descriptor/QueryCheck.h"

#include "descriptor/Metaobject.h"
#include "operations/TypeQuery.h"
#include "selexpr/explain.h"

namespace qzDescriptor {

qzReturnStatus CheckQuery(ISession const& session, EntityFullType const& type, qzString const& query) {
    if (query.empty())
        return {};
    qzString const problem = TypeQuery(session, type, query).GetProblem();
    return problem.empty() ? qzReturnStatus{} : qzReturnStatus{-1, problem};
}

qzString ExplainQuery(ISession const& session, Metaobject const& object, qzString const& query) {
    if (query.empty())
        return qzString();
    TypeQuery const typeQuery(session, object.GetEntityFullType(), query);
    if (typeQuery.GetRequest() == nullptr)
        return typeQuery.GetProblem();
    return ui::selexpr::Explain(*typeQuery.GetRequest(), const_cast<Metaobject*>(&object)).GetText();
}

} // namespace qzDescriptor
