#include "RegisterSet.h"
#include "GetRegisterPath.h"
#include "TestCase.h"

#include <tuple>

namespace
{

using Raw = unsigned long long;
constexpr Raw Ones = ~Raw(0);

struct Set : RegisterSet {
    Set(const QString& title, int offset, const QList<Register*>& fractions)
        : RegisterSet(title, quint8(offset))
    {
        for (Register* each : fractions)
            addFraction(each);
    }
    Raw raw() const { return *this; }
};

} // namespace

class RegisterSetTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void emptySet()
    {
        Set set("S", 1, {nullptr});
        set.addFraction(&set);
        QCOMPARE(QString(set), QString("\nS: 0Bit @ 0x1(1) = 0x0(0) -> Access:  NONE\n{\n}"));
        QVERIFY(set.checkValue(Ones) && set.setValue(5) && set.raw() == 0);
        QVERIFY(!set.getFraction("x") && !set.getFractionSet("x") && set.getFractionCount() == 0);
        QCOMPARE(GetRegisterPath::staticMetaObject.indexOfSignal("xmlCharacterOffset(qint64)"),
                 QObject::staticMetaObject.methodCount());
    }

    void composesAndCuts()
    {
        for (bool isReversed : {false, true}) {
            Register a("Reset", 4, 4, 1, 0xA);
            Register b("reset", 0, 4, 0x10002, 0x205);
            Set set("S", 0x1B, {isReversed ? &b : &a, isReversed ? &a : &b});
            QCOMPARE(static_cast<long long>(set), 0xA5LL); // composed, without being read
            QCOMPARE(QString(set), "\nS: 8Bit @ 0x1B(27) = 0xA5(165) -> Access:  READ_WRITE\n{" +
                                       QString(a) + QString(b) + "\n}");
            QVERIFY(set.getResetValue() == 0x2A5 && set.getMin() == 0 && set.getMax() == 255);
            QVERIFY(!set.setValue(0x5A) && !b.wasWritten()); // a cannot be written
            a.setAccess(3);
            const int before = debugLines().size();
            QVERIFY(set.setValue(0xF5A)); // above there is no fraction
            QCOMPARE(debugLines().mid(before), QStringList("setValue reset"));
            QVERIFY(a.wasWritten() && b.wasWritten() && !set.wasWritten());
            QVERIFY(static_cast<Raw>(a) == 5 && static_cast<Raw>(b) == 0xA);
            QVERIFY(static_cast<long long>(set) == 0xA5 && set.raw() == 0x5A); // now composed
            QCOMPARE(set.getFractions(), (QList<Register*>{&a, &b}));
            set.resetWasWritten();
            QVERIFY(!a.wasWritten() && !b.wasWritten());
            b.addRestrictedValue(7);
            QVERIFY(!set.checkValue(0x17) && set.checkValue(0x71));
        }
    }

    /// What becomes of all ones where a field ends beside or beyond the set's.
    void places()
    {
        // offset and width of a field, width of the set, the field's part, all composed
        const std::tuple<int, int, int, Raw, Raw> rows[] = {
            {0, 64, 64, Ones, Ones}, {0, 65, 65, Ones, 0},         {60, 4, 64, 0xF, Raw(0xF) << 60},
            {61, 4, 65, 7, 0},       {63, 1, 64, 1, Raw(1) << 63}, {64, 1, 65, 0, 0},
            {200, 100, 255, 0, 0}};
        for (const auto& [offset, width, wholeWidth, part, composed] : rows) {
            Register field("f", quint8(offset), quint8(width), 3, 1);
            Register empty("e", 0, 0, 3, 0);
            Set set("S", 0, {&field, &empty});
            QCOMPARE(int(set.getWidth()), wholeWidth);
            QCOMPARE(set.getResetValue(), offset < 64 ? Raw(1) << offset : 0);
            QVERIFY(set.getMax() == 2 * 9223372036854775808.0 && set.setValue(Ones));
            QCOMPARE(static_cast<Raw>(field), part);
            QCOMPARE(set.raw(), composed);
            const QString text = " = 0x-1000000000000000(-1152921504606846976) -> ";
            QVERIFY(QString(set).contains(text) == (offset == 60)); // both are signed
        }
    }

    void everyReaderComposes()
    {
        Register field("f", 4, 40, 3, 0);
        const Set set("S", 0, {&field});
        Raw raw = 0;
        int low = 0;
        double value = 0;
        field.setValue(1);
        set.getValue(&raw);
        field.setValue(0x30000002);
        set.getValue(&low);
        field.setValue(3);
        set.getValue(&value);
        QVERIFY(raw == 0x10 && low == 0x20 && value == 0x30);
        QVERIFY(field.setValue(4) && static_cast<double>(set) == 0x40);
        QVERIFY(field.setValue(5) && QString(set).contains(" = 0x50(80) "));
    }

    /// Through its pointer a set is a plain register, whose stored value counts.
    void setsInSets()
    {
        Register low("low", 0, 4, 3, 0);
        Set inner("inner", 4, {&low});
        Set outer("outer", 0, {&inner});
        Set outermost("outermost", 0, {&outer});
        inner.addFraction(&outermost); // would hold itself
        QCOMPARE(inner.getFractionCount(), 1);
        QCOMPARE(outer.getFractionSet("inner"), &inner);
        QVERIFY(inner.getFraction("low") == &low && !inner.getFractionSet("low"));
        low.setValue(7);
        QVERIFY(outer.raw() == 0 && inner.raw() == 7 && outer.raw() == 0x70);
        QVERIFY(outer.setValue(0x50) && outer.raw() == 0x50);
        QCOMPARE(static_cast<Raw>(low), 7ULL);
        QVERIFY(inner.Register::wasWritten() && !QString(outer).contains("low"));
        outer.resetWasWritten();
        QVERIFY(!inner.Register::wasWritten() && low.wasWritten());
        QVERIFY(debugLines().filter("setValue").isEmpty());
    }

    void clones()
    {
        Register x("x", 0, 4, 3, 0);
        Set inner("inner", 8, {&x});
        Register a("a", 0, 8, 3, 0x11);
        Set set("S", 2, {&a, &inner});
        set.setDescription("D");
        set.setRange(1, 0.5, 7);
        QVERIFY(set.setValue(0x322) && set.raw() == 0x322);
        for (bool isWritten : {false, true}) {
            if (isWritten)
                QVERIFY(set.Register::setValue(3)); // the set's own flag
            QObject owner;
            auto* copy = qobject_cast<RegisterSet*>(set.clone());
            const Register* a2 = copy->getFraction("a");
            Register* x2 = copy->getFractionSet("inner")->getFraction("x");
            for (Register* each : copy->getFractions() + QList<Register*>{copy, x2})
                each->setParent(&owner);
            QVERIFY(x2 != &x && a2 != &a && a.wasWritten() && a2->wasWritten() == isWritten);
            QCOMPARE(static_cast<Raw>(*copy), isWritten ? 3ULL : 0x322ULL);
            QVERIFY(copy->getMin() == 1 && copy->getMax() == 7 && copy->getDecimals() == 1);
            QCOMPARE(copy->getDescription(), QString("D"));
        }
    }
};

AXR_TEST_MAIN(RegisterSetTest)
#include "RegisterSetTest.moc"
