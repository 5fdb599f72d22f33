#pragma once

#include "descriptor/EntityFullType.h"
#include "descriptor/Export.h"
#include "descriptor/Forward.h"
#include "selexpr/IDataFilter.h"

namespace qzDescriptor {

/// Parses queries over the entities of one type. Names are attributes of the type; a bare value is about the
/// entity's id.
///
///     DataInterface data;                                  // and selexpr/IRequest.h
///     QueryParser parser(&data, session, EntityFullType("Ply"));
///     std::unique_ptr<ui::selexpr::IRequest> request(parser.Parse("T > 0.002"));
///     request->Matches(const_cast<Metaobject*>(session->Get(ply)));
///
/// One thread parses at a time; requests may match on as many as the objects may be read by.
class QZDESCRIPTOR_API QueryParser : public ui::selexpr::IDataFilter {
public:
    /// Neither the data nor the session is owned; without a session values are what they are written as.
    QueryParser(ui::selexpr::IDataInterface* data, ISession* session, EntityFullType const& type);
    ~QueryParser() override;

    /// Lets every condition pass: those that ask for equality, or for a part of a text, match with wildcards;
    /// those on ids compare whole numbers.
    bool NumericCondition(ui::selexpr::ConditionType& condition, ui::selexpr::ValueType& type,
                          qzString& property, qzString& refusal) override;
    /// By the definition of the attribute.
    void SettleValueType(ui::selexpr::ValueType& type, qzString const& property) const override;

private:
    EntityFullType m_type;
    ISession* m_session;
};

} // namespace qzDescriptor
