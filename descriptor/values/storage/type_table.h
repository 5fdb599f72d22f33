#pragma once

/// The facts of every value type, each in one row. The order is that of the GetValuePointer families in
/// Value; the getters and setters of ValuePtr stand in exactly the reverse order.

// clang-format off
// X(Type, Name, Basic, Compound, Strings): Strings says whether an element may carry an associated string.
// Numbers, which Value reads and writes inline, and objects, which it does not.
#define QZ_NUMBER_TYPES(X) \
    X(bool,                Bool,      BT_BOOL,    CT_SCALAR,    true) \
    X(char,                Char,      BT_CHAR,    CT_SCALAR,    true) \
    X(unsigned char,       UChar,     BT_UCHAR,   CT_SCALAR,    true) \
    X(int,                 Int,       BT_INT,     CT_SCALAR,    true) \
    X(unsigned int,        UInt,      BT_UINT,    CT_SCALAR,    true) \
    X(short,               Short,     BT_SHORT,   CT_SCALAR,    false) \
    X(unsigned short,      UShort,    BT_USHORT,  CT_SCALAR,    false) \
    X(long,                Long,      BT_LONG,    CT_SCALAR,    false) \
    X(unsigned long,       ULong,     BT_ULONG,   CT_SCALAR,    false) \
    X(float,               Float,     BT_FLOAT,   CT_SCALAR,    true) \
    X(double,              Double,    BT_DOUBLE,  CT_SCALAR,    true)
#define QZ_OBJECT_TYPES(X) \
    X(qzString,            String,    BT_STRING,  CT_SCALAR,    true) \
    X(qzTCouple<double>,   Couple,    BT_DOUBLE,  CT_COUPLE,    true) \
    X(qzTCouple<float>,    CoupleF,   BT_FLOAT,   CT_COUPLE,    true) \
    X(qzTCouple<int>,      CoupleI,   BT_INT,     CT_COUPLE,    true) \
    X(qzTTriple<double>,   Triple,    BT_DOUBLE,  CT_TRIPLE,    true) \
    X(qzTTriple<float>,    TripleF,   BT_FLOAT,   CT_TRIPLE,    true) \
    X(qzTTriple<int>,      TripleI,   BT_INT,     CT_TRIPLE,    true) \
    X(qzTMatrix33<double>, Matrix33,  BT_DOUBLE,  CT_MATRIX33,  true) \
    X(qzTMatrix44<double>, Matrix44,  BT_DOUBLE,  CT_MATRIX44,  true) \
    X(Color,               Color,     BT_UINT,    CT_COLOR,     false) \
    X(Qualifier,           Qualifier, BT_OBJECT,  CT_QUALIFIER, false) \
    X(Entity,              Entity,    BT_UINT,    CT_ENTITY,    true) \
    X(Formula,             Formula,   BT_OBJECT,  CT_FORMULA,   false) \
    X(void*,               Void,      BT_POINTER, CT_SCALAR,    false) \
    X(Function,            Function,  BT_POINTER, CT_FUNCTION,  false)
#define QZ_ELEMENT_TYPES(X) QZ_NUMBER_TYPES(X) QZ_OBJECT_TYPES(X)

// X(Container, Name, Kind, Element): the containers that hold many elements, and how.
#define QZ_CONTAINER_TYPES(X) \
    X(qzStlVector<bool>,                            BoolList,          Array1,  bool) \
    X(qzStlVector<char>,                            CharList,          Array1,  char) \
    X(qzStlVector<int>,                             IntList,           Array1,  int) \
    X(qzStlVector<unsigned int>,                    UIntList,          Array1,  unsigned int) \
    X(qzStlVector<long>,                            LongList,          Array1,  long) \
    X(qzStlVector<unsigned long>,                   ULongList,         Array1,  unsigned long) \
    X(qzStlVector<float>,                           FloatList,         Array1,  float) \
    X(qzStlVector<double>,                          DoubleList,        Array1,  double) \
    X(qzStlVector<qzString>,                        StringList,        Array1,  qzString) \
    X(qzStlVector<qzTCouple<double>>,               CoupleList,        Array1,  qzTCouple<double>) \
    X(qzStlVector<qzTTriple<double>>,               TripleList,        Array1,  qzTTriple<double>) \
    X(qzStlVector<qzTTriple<int>>,                  TripleIList,       Array1,  qzTTriple<int>) \
    X(qzStlVector<Qualifier>,                       QualifierList,     Array1,  Qualifier) \
    X(EntityList,                                   EntityList,        Array1,  Entity) \
    X(qzStlVector<Formula>,                         FormulaList,       Array1,  Formula) \
    X(FormulaBag,                                   FormulaBag,        Bag,     Formula) \
    X(qzStlVector<void*>,                           PointerList,       Array1,  void*) \
    X(qzStlVector<qzStlVector<int>>,                IntList2,          Array2,  int) \
    X(qzStlVector<qzStlVector<unsigned int>>,       UIntList2,         Array2,  unsigned int) \
    X(qzStlVector<qzStlVector<long>>,               LongList2,         Array2,  long) \
    X(qzStlVector<qzStlVector<unsigned long>>,      ULongList2,        Array2,  unsigned long) \
    X(qzStlVector<qzStlVector<float>>,              FloatList2,        Array2,  float) \
    X(qzStlVector<qzStlVector<double>>,             DoubleList2,       Array2,  double) \
    X(qzStlVector<qzStlVector<qzTTriple<double>>>,  TripleList2,       Array2,  qzTTriple<double>) \
    X(EntityList2,                                  EntityList2,       Array2,  Entity) \
    X(EntityListBag,                                EntityListBag,     Bag,     Entity) \
    X(EntityListBagList,                            EntityListBagList, BagList, Entity) \
    X(Tabular,                                      Tabular,           Table,   Tabular)
// clang-format on
