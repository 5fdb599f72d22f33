#pragma once

#include "descriptor/DataInterface.h"
#include "descriptor/EntityFullType.h"
#include "descriptor/QueryParser.h"
#include "selexpr/IRequest.h"

#include <memory>
#include <vector>

namespace qzDescriptor {

/// The data interface of objects of one type, whose attributes are found once for all objects.
class TypeDataInterface : public DataInterface {
public:
    TypeDataInterface(ISession const& session, EntityFullType const& type);

    std::unique_ptr<ui::selexpr::IProperty> Bind(qzString const& property) override;

    /// Properties that the type does not have, in the order in which they were met.
    std::vector<qzString> const& GetUnknown() const { return m_unknown; }

private:
    MetaclassMgr const* m_registry;
    unsigned int m_metaclass;
    std::vector<qzString> m_unknown;
};

/// A query over the objects of one type.
class TypeQuery {
public:
    TypeQuery(ISession const& session, EntityFullType const& type, qzString const& text);

    /// Null when the text cannot be read.
    ui::selexpr::IRequest const* GetRequest() const { return m_request.get(); }
    /// Why it cannot be read, or which attribute the type does not have; empty when it is right.
    qzString GetProblem() const;

private:
    EntityFullType m_type;
    TypeDataInterface m_data;
    QueryParser m_parser;
    std::unique_ptr<ui::selexpr::IRequest> m_request;
};

} // namespace qzDescriptor
