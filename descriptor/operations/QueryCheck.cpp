#include "descriptor/QueryCheck.h"

#include "descriptor/Metaobject.h"
#include "descriptor/ObjectQuery.h"

namespace qzDescriptor {

qzReturnStatus CheckQuery(ISession const& session, EntityFullType const& type, qzString const& query) {
    if (query.empty())
        return {};
    qzString const problem = ObjectQuery(session, type, query).GetProblem();
    return problem.empty() ? qzReturnStatus{} : qzReturnStatus{-1, problem};
}

qzString ExplainQuery(ISession const& session, Metaobject const& object, qzString const& query) {
    if (query.empty())
        return qzString();
    ObjectQuery const objectQuery(session, object.GetEntityFullType(), query);
    return objectQuery.IsValid() ? objectQuery.Explain(&object).GetText() : objectQuery.GetProblem();
}

} // namespace qzDescriptor
