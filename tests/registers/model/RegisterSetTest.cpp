#include "RegisterSet.h"
#include "GetRegisterPath.h"
#include "RegisterModel.h"
#include "TestCase.h"

using namespace RegisterModel;

namespace
{

/// Keeps fractions alive, which no set does.
struct Fractions {
    std::vector<std::unique_ptr<Register>> owned;

    Register* add(const QString& title, int offset, int width, int access = 3, Raw reset = 0)
    {
        owned.push_back(std::make_unique<Register>(title, static_cast<unsigned char>(offset),
                                                   static_cast<unsigned char>(width), access,
                                                   reset));
        return owned.back().get();
    }
    /// With one fraction of its own, which cannot be reached through a set around it.
    Register* addSet(const QString& title, int offset, int width, int access, Raw reset)
    {
        auto set = std::make_unique<RegisterSet>(title, static_cast<unsigned char>(offset));
        set->addFraction(add(QStringLiteral("inner"), 0, width, access, reset));
        owned.push_back(std::move(set));
        return owned.back().get();
    }
};

/// The set and everything in it, as the caller of clone() owns it.
void destroy(Register* fraction)
{
    if (auto* set = qobject_cast<RegisterSet*>(fraction)) {
        for (Register* each : set->getFractions())
            destroy(each);
    }
    delete fraction;
}

} // namespace

class RegisterSetTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void emptySet()
    {
        RegisterSet set(QStringLiteral("S"), 1);
        QCOMPARE(static_cast<QString>(set),
                 QString("\nS: 0Bit @ 0x1(1) = 0x0(0) -> Access:  NONE\n{\n}"));
        QVERIFY(set.checkValue(~Raw(0)) && set.setValue(5));
        QCOMPARE(static_cast<Raw>(set), 0ULL);
        set.addFraction(nullptr);
        set.addFraction(&set);
        QCOMPARE(set.getFractionCount(), 0);
        QVERIFY(!set.getFraction(QStringLiteral("x")) && !set.getFractionSet(QStringLiteral("x")));
        QCOMPARE(set.getFractionCount(), 0);
        QCOMPARE(GetRegisterPath::staticMetaObject.indexOfSignal("xmlCharacterOffset(qint64)"),
                 QObject::staticMetaObject.methodCount());
    }

    void composesAndCuts()
    {
        for (bool reversed : {false, true}) {
            Fractions all;
            RegisterSet set(QStringLiteral("S"), 0);
            Register* a = all.add(QStringLiteral("a"), 4, 4, 1, 0xA);
            Register* b = all.add(QStringLiteral("b"), 0, 4, 0x10002, 5);
            for (Register* each : reversed ? QList<Register*>{b, a} : QList<Register*>{a, b})
                set.addFraction(each);
            QCOMPARE(static_cast<Raw>(set), 0xA5ULL);
            QCOMPARE(set.getWidth(), quint8(8));
            QCOMPARE(set.getResetValue(), 0xA5ULL);
            QCOMPARE(set.getAccess(), 3); // the lower 16 bits of each
            QCOMPARE(set.getMin(), 0.0);
            QCOMPARE(set.getMax(), 255.0);
            QVERIFY(!set.setValue(0x5A)); // a cannot be written
            QVERIFY(!b->wasWritten());
            a->setAccess(3);
            QVERIFY(set.setValue(0xF5A)); // above there is no fraction
            QVERIFY(b->wasWritten() && !set.wasWritten());
            QCOMPARE(static_cast<long long>(set), 0xA5LL); // not composed yet
            QCOMPARE(static_cast<double>(set), 0x5A);
            QCOMPARE(static_cast<long long>(set), 0x5ALL);
            QCOMPARE(set.getFractions(), (QList<Register*>{a, b}));
            set.resetWasWritten();
            QVERIFY(!a->wasWritten() && !b->wasWritten());
        }
    }

    void everythingAgainstTheModel_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 6; ++seed)
            QTest::newRow(qPrintable(QString("seed %1").arg(seed))) << seed;
    }
    void everythingAgainstTheModel()
    {
        QFETCH(unsigned, seed);
        Source source(seed);
        int taken = 0;
        for (int round = 0; round < 1000; ++round) {
            Fractions all;
            RegisterSet set(QStringLiteral("S"), 0);
            QMap<QString, Register*> model;
            unsigned width = 0;
            Wide reset = 0;
            int access = 0;
            for (unsigned i = 0, count = source.below(9); i < count; ++i) {
                const auto offset = source.chance(8) ? source.below(256) : source.below(60);
                const auto bits = source.chance(20) ? source.below(256) : source.below(12);
                const int kind = source.chance(12) ? 1 : 3;
                const QString title(QChar('a' + int(source.below(12))));
                const Raw start = source.raw(bits);
                Register* field = source.chance(6)
                                      ? all.addSet(title, int(offset), int(bits), kind, start)
                                      : all.add(title, int(offset), int(bits), kind, start);
                if (source.chance(6))
                    field->addRestrictedValue(source.raw(bits));
                set.addFraction(field);
                model[field->getTitle()] = field;
                width = qMax(width, qMin(255U, offset + bits));
                if (offset < 64)
                    reset |= (Wide(field->getResetValue()) * power(offset)) % power(64);
                access |= kind;
            }
            const auto bitsOf = [](Raw value, const Register* field) {
                const unsigned offset = field->getOffset();
                const Raw moved = offset > 63 ? 0 : Raw(Wide(value) / power(offset));
                return field->getWidth() > 63 ? moved : Raw(moved % power(field->getWidth()));
            };
            const auto composed = [&model] {
                Wide sum = 0;
                for (const Register* field : qAsConst(model)) {
                    const unsigned end = field->getOffset() + field->getWidth();
                    const Raw raw = static_cast<Raw>(*field);
                    if (end <= 64)
                        sum |= (Wide(raw) % power(field->getWidth())) * power(field->getOffset());
                }
                return Raw(sum);
            };
            QCOMPARE(unsigned(set.getWidth()), width);
            QCOMPARE(set.getResetValue(), Raw(reset));
            QCOMPARE(set.getAccess(), access);
            QCOMPARE(set.getMax(), width > 63 ? double(~Raw(0)) : double(power(width) - 1));
            QCOMPARE(set.getFractions(), model.values());
            for (int i = 0; i < 4; ++i) {
                const Raw value = source.raw(64);
                bool wanted = true;
                for (const Register* field : qAsConst(model))
                    wanted = wanted && field->checkValue(bitsOf(value, field));
                const QString where = QString("round %1, value 0x%2").arg(round).arg(value, 0, 16);
                QVERIFY2(set.checkValue(value) == wanted, qPrintable(where));
                QVERIFY2(set.setValue(value) == wanted, qPrintable(where));
                taken += wanted;
                for (const Register* field : qAsConst(model))
                    QVERIFY2(!wanted || static_cast<Raw>(*field) == bitsOf(value, field),
                             qPrintable(where));
                Raw raw = 0;
                set.getValue(&raw);
                QVERIFY2(raw == composed(), qPrintable(where));
                int low = 0;
                set.getValue(&low);
                QCOMPARE(quint32(low), quint32(raw));
            }
            for (const auto& each : all.owned)
                QVERIFY(each->getTitle() != QLatin1String("inner") || !each->wasWritten());
        }
        QVERIFY(taken > 500);
    }

    void textIsSigned()
    {
        Fractions all;
        RegisterSet set(QStringLiteral("S"), 16);
        set.addFraction(all.add(QStringLiteral("top"), 63, 1, 3, 1));
        QCOMPARE(static_cast<QString>(set),
                 QString("\nS: 64Bit @ 0x10(16) = 0x-8000000000000000(-9223372036854775808) -> "
                         "Access:  READ_WRITE\n{\ntop: 1Bit @ 0x3F(63) = 0x1(1) -> Access:  "
                         "READ_WRITE\n}"));
    }

    /// Through its pointer a set is a plain register, whose stored value counts.
    void setsInSets()
    {
        Fractions all;
        Register* low = all.add(QStringLiteral("low"), 0, 4);
        RegisterSet inner(QStringLiteral("inner"), 4);
        inner.addFraction(low);
        RegisterSet outer(QStringLiteral("outer"), 0);
        outer.addFraction(&inner);
        inner.addFraction(&outer); // would hold itself
        QCOMPARE(inner.getFractionCount(), 1);
        QCOMPARE(outer.getFractionSet(QStringLiteral("inner")), &inner);
        QVERIFY(!inner.getFractionSet(QStringLiteral("low")));

        low->setValue(7);
        QCOMPARE(static_cast<Raw>(outer), 0ULL);
        QCOMPARE(static_cast<Raw>(inner), 7ULL);
        QCOMPARE(static_cast<Raw>(outer), 0x70ULL);
        QVERIFY(outer.setValue(0x50));
        QCOMPARE(static_cast<Raw>(outer), 0x50ULL);
        QCOMPARE(static_cast<Raw>(*low), 7ULL);
        QVERIFY(inner.Register::wasWritten());
        QVERIFY(!static_cast<QString>(outer).contains("low"));
        outer.resetWasWritten();
        QVERIFY(!inner.Register::wasWritten() && low->wasWritten());
    }

    void writesToAFractionNamedReset()
    {
        Fractions all;
        RegisterSet set(QStringLiteral("S"), 0);
        set.addFraction(all.add(QStringLiteral("reset"), 0, 1));
        set.addFraction(all.add(QStringLiteral("Reset"), 1, 1));
        const int before = debugLines().size();
        QVERIFY(set.setValue(3));
        QCOMPARE(debugLines().mid(before), QStringList("setValue reset"));
    }

    void clones()
    {
        Fractions all;
        RegisterSet inner(QStringLiteral("inner"), 8);
        inner.addFraction(all.add(QStringLiteral("x"), 0, 4));
        RegisterSet set(QStringLiteral("S"), 2);
        set.addFraction(all.add(QStringLiteral("a"), 0, 8, 3, 0x11));
        set.addFraction(&inner);
        set.setDescription(QStringLiteral("D"));
        set.setRange(1, 0.5, 7);
        set.setValue(0x322);
        QCOMPARE(static_cast<Raw>(set), 0x322ULL);
        Register* made = set.clone();
        auto* copy = qobject_cast<RegisterSet*>(made);
        QVERIFY(copy);
        QCOMPARE(static_cast<QString>(*copy), static_cast<QString>(set));
        QCOMPARE(copy->getDescription(), QString("D"));
        QCOMPARE(copy->getMin(), 1.0);
        QCOMPARE(copy->getMax(), 7.0);
        QCOMPARE(copy->getDecimals(), quint8(1));
        QVERIFY(copy->getFraction(QStringLiteral("a")) != set.getFraction(QStringLiteral("a")));
        QVERIFY(copy->getFractionSet(QStringLiteral("inner"))->getFraction(QStringLiteral("x")));
        QVERIFY(!copy->getFraction(QStringLiteral("a"))->wasWritten()); // the set's flag was clear
        QVERIFY(set.getFraction(QStringLiteral("a"))->wasWritten());
        destroy(made);
    }
};

AXR_TEST_MAIN(RegisterSetTest)
#include "RegisterSetTest.moc"
