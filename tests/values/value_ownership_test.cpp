#include "descriptor/qzdescriptor.h"

#include <gtest/gtest.h>

#include <vector>

namespace qzDescriptor::test {
namespace {

/// A holder of a double that its user keeps: derived outside the library, with behaviour of its own.
class Gauge : public ValuePtr {
public:
    using ValuePtr::GetValue;
    using ValuePtr::SetValue;

    explicit Gauge(double reading) : ValuePtr(DS_ON, true), m_reading(reading) {}
    ~Gauge() override { ++s_destroyed; }

    ValuePtr* Clone() const override { return Create(m_reading, GetDisplayStatus()); }
    BasicType GetBasicType() const override { return BT_DOUBLE; }
    CompoundType GetCompoundType() const override { return CT_SCALAR; }
    bool Equals(ValuePtr const* other) const override {
        double theirs = 0;
        return P_EqualTypes(other) && other->GetValue(theirs, 0, 0) && theirs == m_reading;
    }
    bool GetValue(double& value, unsigned int, unsigned int) const override {
        ++m_reads;
        value = m_reading;
        return true;
    }
    bool SetValue(double const& value, unsigned int, unsigned int) override {
        m_reading = value;
        return true;
    }

    int GetReads() const { return m_reads; }

    static inline int s_destroyed = 0;

private:
    double m_reading;
    mutable int m_reads = 0;
};

TEST(ExternallyManagedHolders, AreReadThroughTheirOwnOperations) {
    Gauge gauge(2.5);
    Value value(&gauge);
    double read = 0;
    EXPECT_TRUE(value.GetValue(read));
    EXPECT_EQ(read, 2.5);
    EXPECT_EQ(gauge.GetReads(), 1);
    EXPECT_TRUE(value.SetValue(3.5)) << "the holder's own answer";
    Value plain;
    plain.SetValue(3.5);
    plain.SetDisplayStatus(DS_ON);
    EXPECT_EQ(plain, value) << "compared through a copy, since the holder shows no pointer";
    EXPECT_EQ(value, plain);
    EXPECT_TRUE(Value::AreEqualWithinTolerance(plain, value, 0, false));
}

TEST(ExternallyManagedHolders, AreNeverDestroyedAndNeverStolen) {
    int const destroyed = Gauge::s_destroyed;
    Gauge gauge(2.5);
    {
        Value value(&gauge);
        Value moved(std::move(value));
        EXPECT_EQ(value.GetValuePtr(), &gauge);
        EXPECT_NE(moved.GetValuePtr(), &gauge);
        Value assigned;
        assigned = std::move(value);
        EXPECT_EQ(value.GetValuePtr(), &gauge);
        assigned.SetValue(7.0);
        double read = 0;
        EXPECT_TRUE(gauge.GetValue(read, 0, 0));
        EXPECT_EQ(read, 2.5) << "the clone is independent";
        EXPECT_FALSE(moved.GetValuePtr()->IsMemoryExternallyManaged());
    }
    EXPECT_EQ(Gauge::s_destroyed, destroyed);
}

TEST(Ownership, MovesEmptyTheSource) {
    Value source(2.5, "mm", DS_OFF);
    ValuePtr const* const holder = source.GetValuePtr();
    Value target(std::move(source));
    EXPECT_EQ(target.GetValuePtr(), holder);
    EXPECT_EQ(source.GetValuePtr(), nullptr);
    Value& self = target;
    target = std::move(self);
    EXPECT_EQ(target.GetValuePtr(), holder);
    target = self;
    EXPECT_EQ(target.GetValuePtr(), holder);
}

TEST(Ownership, VectorsOfValuesGrowWithoutCopies) {
    std::vector<Value> values(1);
    values[0].SetValue(2.5);
    double const* const number = values[0].GetValuePointerDouble();
    values.resize(1000);
    EXPECT_EQ(values[0].GetValuePointerDouble(), number);
}

TEST(Ownership, MoveValueSharesTheHolder) {
    Value source(2.5), target(7);
    target.MoveValue(source);
    EXPECT_EQ(target.GetValuePtr(), source.GetValuePtr());
    target.MoveValue(source);
    target.MoveValue(target);
    EXPECT_EQ(target.GetValuePtr(), source.GetValuePtr());
    ASSERT_NE(source.GetValuePointerDouble(), nullptr);
    EXPECT_EQ(*source.GetValuePointerDouble(), 2.5);
    // Only one of the two may release the holder: the other one is left without a destructor call.
    new (&source) Value();
}

TEST(Ownership, AssigningAHolderClonesIt) {
    Value source(2.5, "mm", DS_OFF);
    source.SetCorrespondsToEntityType(true);
    Value target(7);
    target = *source.GetValuePtr();
    EXPECT_EQ(target, source);
    EXPECT_NE(target.GetValuePtr(), source.GetValuePtr());
    EXPECT_FALSE(target.GetCorrespondsToEntityType()) << "a clone is marked for nobody";
    target = *target.GetValuePtr();
    EXPECT_EQ(target, source) << "assignment from an own part";
}

TEST(EmptyValues, ReportNothingAndRefuseEverything) {
    Value empty;
    EXPECT_EQ(empty.GetBasicType(), BT_NONE);
    EXPECT_EQ(empty.GetCompoundType(), CT_NONE);
    EXPECT_EQ(empty.GetArrayDimension(), 0u);
    EXPECT_FALSE(empty.IsBagType());
    EXPECT_EQ(empty.GetValueMemoryUsage(), 0u);
    EXPECT_EQ(empty.GetValuePointerDouble(), nullptr);
    EXPECT_EQ(empty.GetValuePointerStringList(), nullptr);
    EXPECT_FALSE(empty.SetValue(qzStlVector<double>{1}));
    EXPECT_FALSE(empty.SetValueFromString("1"));
    EXPECT_FALSE(empty.SetValue(Entity(), EntityFullType("GRID"), 0));
    double number = 4;
    EXPECT_FALSE(empty.GetValue(number));
    EXPECT_EQ(number, 4);
    qzString text = "before";
    EXPECT_FALSE(empty.GetValueAsString(text));
    EXPECT_EQ(text, "");
    EXPECT_TRUE(empty == Value());
    EXPECT_FALSE(empty == Value(1));
    EXPECT_FALSE(Value(1) == empty);
    EXPECT_FALSE(empty < Value(1));
    EXPECT_EQ(Value(empty), empty);
    Value filled(1);
    filled = empty;
    EXPECT_EQ(filled.GetValuePtr(), nullptr);
    EXPECT_EQ(Value(static_cast<ValuePtr*>(nullptr)), empty);
}

TEST(Retyping, MayReadFromTheValueThatItReplaces) {
    Value value(Entity(EntityFullType("GRID"), 7));
    Entity const* const entity = value.GetValuePointerEntity();
    value.SetValue(entity->GetId()); // the id lies in the holder that goes
    ASSERT_NE(value.GetValuePointerUInt(), nullptr);
    EXPECT_EQ(*value.GetValuePointerUInt(), 7u);
    Value named(Entity(EntityFullType("GRID"), 7));
    named.SetValue(named.GetValuePointerEntity()->GetEntityFullType().GetTypeNamed());
    EXPECT_EQ(*named.GetValuePointerString(), "GRID");
}

} // namespace
} // namespace qzDescriptor::test
