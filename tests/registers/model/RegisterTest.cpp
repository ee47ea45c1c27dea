#include "Register.h"
#include "DefaultValueTransformer.h"
#include "FixedPointValueTransformer.h"
#include "RegisterModel.h"
#include "TestCase.h"
#include "ToSignedValueTransformer.h"

#include <QSet>

using namespace RegisterModel;

namespace
{

constexpr double twoTo63 = 9223372036854775808.0;
const double notANumber = std::numeric_limits<double>::quiet_NaN();
const double infinity = std::numeric_limits<double>::infinity();

std::unique_ptr<ValueTransformer> transformer(Rule rule, int fractionBits)
{
    switch (rule) {
    case Rule::Default:
        return std::make_unique<DefaultValueTransformer>();
    case Rule::Signed:
        return std::make_unique<ToSignedValueTransformer>();
    default:
        return std::make_unique<FixedPointValueTransformer>(
            static_cast<unsigned char>(fractionBits), rule == Rule::FixedSigned);
    }
}

/// What a register must do, in the model's arithmetic.
struct Model {
    Rule rule;
    int fractionBits;
    unsigned width;
    int access;
    double min;
    double max;
    double tick;
    QSet<Raw> restricted;
    Raw value;

    double physical(Raw raw) const
    {
        return RegisterModel::physical(rule, fractionBits, raw, width);
    }
    bool accepts(Raw raw) const
    {
        return access / 2 % 2 == 1 && !restricted.contains(raw) && fits(raw, width) &&
               physical(raw) >= min && physical(raw) <= max;
    }
    bool accepts(double number) const
    {
        if (access / 2 % 2 == 0 || std::isnan(number) || number < min || number > max)
            return false;
        const bool isWhole = std::fmod(tick, 1.0) == 0;
        const double nearest = isWhole ? number : tick * std::round(number / tick);
        return accepts(RegisterModel::raw(rule, fractionBits, nearest));
    }
};

} // namespace

class RegisterTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void firstOneIsAnnounced()
    {
        const Register first(QStringLiteral("A"), 0, 8, 3, 0);
        const Register second(QStringLiteral("B"), 0, 8, 3, 0);
        QVERIFY(QMetaType::type("Register") != QMetaType::UnknownType);
        QCOMPARE(debugLines(),
                 QStringList(QString("Register::Register(QString, quint8, quint8, int, quint64) "
                                     "Register: %1")
                                 .arg(QMetaType::type("Register"))));
    }

    void rangeOfAWidth()
    {
        const struct {
            int width;
            double min;
            double max;
        } rows[] = {{0, 0, 0},
                    {1, 0, 1},
                    {2, -1, 3},
                    {8, -127, 255},
                    {63, -4611686018427387903.0, 9223372036854775807.0},
                    {64, -twoTo63, 2 * twoTo63},
                    {255, -twoTo63, 2 * twoTo63}};
        for (const auto& row : rows) {
            const Register field(QString(), 0, static_cast<unsigned char>(row.width), 3, 0);
            QCOMPARE(field.getMin(), row.min);
            QVERIFY(!std::signbit(field.getMin()) || row.min < 0);
            QCOMPARE(field.getMax(), row.max);
        }
    }

    /// Every width, rule and access, with numbers from everywhere.
    void againstTheModel_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 8; ++seed)
            QTest::newRow(qPrintable(QString("seed %1").arg(seed))) << seed;
    }
    void againstTheModel()
    {
        QFETCH(unsigned, seed);
        Source source(seed);
        int taken = 0;
        int refused = 0;
        for (int round = 0; round < 2000; ++round) {
            const auto width = static_cast<unsigned char>(source.below(67));
            const Rule rule = static_cast<Rule>(source.below(4));
            const int fractionBits = int(source.below(64));
            const int accesses[] = {0, 1, 2, 3, 3, 3, 7, 15, 18};
            Model model{rule, fractionBits, width,         accesses[source.below(9)], 0, 0,
                        1.0,  {},           source.raw(64)};
            const auto conversion = transformer(rule, fractionBits);
            Register field(QStringLiteral("F"), 3, width, model.access, model.value);
            field.setValueTransformer(conversion.get());
            model.min = field.getMin();
            model.max = field.getMax();
            if (source.chance(3)) {
                const double a = source.number(width);
                const double b = source.number(width);
                field.setRange(a, b);
                model.min = qMin(a, b);
                model.max = qMax(a, b);
            }
            if (source.chance(3)) {
                const double ticks[] = {0.25, 0.1, 2, 3.5, 0};
                model.tick = ticks[source.below(5)];
                field.setTick(model.tick);
            }
            const Raw restricted = source.raw(width);
            model.restricted << restricted;
            field.addRestrictedValue(restricted);
            for (int i = 0; i < 8; ++i) {
                const Raw raw = source.chance(8) ? restricted : source.raw(width);
                const double number = source.number(width);
                const QString where = QString("round %1: width %2, rule %3, fraction %4, access "
                                              "%5, raw 0x%6, number %7")
                                          .arg(round)
                                          .arg(width)
                                          .arg(int(rule))
                                          .arg(fractionBits)
                                          .arg(model.access)
                                          .arg(raw, 0, 16)
                                          .arg(number, 0, 'g', 17);
                QVERIFY2(field.checkValue(raw) == model.accepts(raw), qPrintable(where));
                QVERIFY2(field.checkValue(number) == model.accepts(number), qPrintable(where));
                bool done = false;
                bool wanted = false;
                switch (i % 3) {
                case 0:
                    wanted = model.accepts(raw);
                    done = field.setValue(raw);
                    if (wanted)
                        model.value = raw;
                    break;
                case 1: {
                    const auto cut = int(unsigned(raw));
                    const Raw extended = Raw((Wide(cut) + power(64)) % power(64));
                    wanted = model.accepts(extended);
                    done = field.setValue(cut);
                    if (wanted)
                        model.value = extended;
                    break;
                }
                default: {
                    const Raw given = RegisterModel::raw(rule, fractionBits, number);
                    wanted = model.accepts(number) && model.accepts(given);
                    done = field.setValue(number);
                    if (wanted)
                        model.value = given;
                }
                }
                QVERIFY2(done == wanted, qPrintable(where));
                QVERIFY2(static_cast<Raw>(field) == model.value, qPrintable(where));
                QVERIFY2(static_cast<double>(field) == model.physical(model.value),
                         qPrintable(where));
                taken += done;
                refused += !done;
            }
        }
        QVERIFY2(taken > 1000 && refused > 1000, qPrintable(QString::number(taken)));
    }

    void wholeNumbersOfEveryType()
    {
        Register field(QString(), 0, 8, 3, 0);
        const Raw allOnes = ~Raw(0);
        QVERIFY(field.setValue(-1));
        QCOMPARE(static_cast<Raw>(field), allOnes);
        QCOMPARE(static_cast<double>(field), 255.0);
        QVERIFY(field.setValue(5U) && static_cast<Raw>(field) == 5);
        QVERIFY(field.setValue(-2L) && static_cast<Raw>(field) == allOnes - 1);
        QVERIFY(field.setValue(qint64(-3)) && static_cast<Raw>(field) == allOnes - 2);
        QVERIFY(field.setValue(uint64_t(6)) && static_cast<Raw>(field) == 6);
        QVERIFY(field.setValue(static_cast<signed char>(-4)));
        QCOMPARE(static_cast<Raw>(field), allOnes - 3);
        QVERIFY(field.checkValue(5) && field.checkValue(-1) && !field.checkValue(256));
        QVERIFY(field.checkValue(quint8(255)) && !field.checkValue(quint16(256)));

        Raw raw = 0;
        int low = 0;
        double number = 0;
        field.getValue(&raw);
        field.getValue(&low);
        field.getValue(&number);
        field.getValue(static_cast<Raw*>(nullptr));
        field.getValue(static_cast<int*>(nullptr));
        field.getValue(static_cast<double*>(nullptr));
        QCOMPARE(raw, allOnes - 3);
        QCOMPARE(low, -4);
        QCOMPARE(number, 252.0);
        QCOMPARE(static_cast<long long>(field), -4LL);
    }

    void numbersWithoutARawValue()
    {
        ToSignedValueTransformer toSigned;
        DefaultValueTransformer cuts;
        FixedPointValueTransformer fixed(63, false);
        QCOMPARE(cuts.get(2.5, 8), 2ULL);
        QCOMPARE(toSigned.get(2.5, 8), 3ULL);
        QCOMPARE(toSigned.get(-2.5, 8), ~0ULL - 2);
        QCOMPARE(cuts.get(notANumber, 8), 0ULL);
        QCOMPARE(toSigned.get(infinity, 8), ~0ULL);
        QCOMPARE(toSigned.get(-infinity, 8), 1ULL << 63U);
        QCOMPARE(fixed.get(1e300, 64), ~0ULL);

        Register field(QString(), 0, 64, 3, 7);
        QVERIFY(!field.checkValue(notANumber) && !field.setValue(notANumber));
        field.setTick(notANumber);
        field.setTick(infinity);
        field.setRange(0, notANumber);
        field.setRange(-infinity, 1);
        field.setMin(notANumber);
        field.setMax(notANumber);
        QCOMPARE(field.getTick(), 1.0);
        QCOMPARE(field.getMin(), -twoTo63);
        QCOMPARE(field.getMax(), 2 * twoTo63);
        field.setRange(5, 0.5, 1);
        QCOMPARE(field.getMin(), 1.0);
        QCOMPARE(field.getMax(), 5.0);
        QCOMPARE(field.getTick(), 0.5);
    }

    void decimalsOfATick()
    {
        const struct {
            double tick;
            int decimals;
        } rows[] = {{1, 0},    {0, 0},      {-4, 0},     {0.25, 2},      {0.1, 1},
                    {0.07, 3}, {1e-50, 50}, {1e-51, 51}, {1.0 / 3.0, 17}};
        Register field(QString(), 0, 8, 3, 0);
        for (const auto& row : rows) {
            field.setTick(row.tick);
            const int decimals = field.getDecimals();
            // a third is whole as soon as its digits are spent; where, the machine decides
            if (row.decimals == 17)
                QVERIFY(decimals >= 15 && decimals <= 51);
            else
                QVERIFY2(decimals == row.decimals, qPrintable(QString::number(row.tick)));
        }
    }

    void textAndAccess()
    {
        const struct {
            int access;
            const char* text;
        } rows[] = {{1, " READ"}, {2, " WRITE"},       {3, " READ_WRITE"}, {7, " WRITE_X_READ_Y"},
                    {0, " NONE"}, {15, " READ_CLEAR"}, {4, " NONE"},       {-1, " NONE"}};
        Register field(QStringLiteral("Title"), 4, 8, 1, 0xA5);
        QCOMPARE(static_cast<QString>(field),
                 QString("\nTitle: 8Bit @ 0x4(4) = 0xA5(165) -> Access:  READ"));
        for (const auto& row : rows) {
            field.setAccess(row.access);
            QCOMPARE(field.getAccessString(), QString(row.text));
        }
        ToSignedValueTransformer toSigned;
        Register wide(QStringLiteral("x"), 171, 64, 3, ~Raw(0) - 0xAB);
        wide.setValueTransformer(&toSigned);
        QCOMPARE(static_cast<QString>(wide),
                 QString("\nx: 64Bit @ 0xAB(171) = 0xFFFFFFFFFFFFFF54(-172) -> Access:  "
                         "READ_WRITE"));
        wide.setValueTransformer(nullptr);
        QVERIFY(static_cast<QString>(wide).contains("(1.844674407e+19)"));
    }

    void writtenFlagAndReset()
    {
        Register field(QString(), 0, 8, 3, 9);
        field.addRestrictedValue(9);
        field.addRestrictedValue(255);
        QVERIFY(!field.setValue(9) && !field.wasWritten());
        QVERIFY(field.setValue(10) && field.wasWritten());
        QVERIFY(field.setValue(-1)); // as it is given it is another number than 255
        field.reset();
        QCOMPARE(static_cast<Raw>(field), 9ULL);
        QVERIFY(field.wasWritten());
        field.resetWasWritten();
        QVERIFY(!field.wasWritten());
    }

    void clones()
    {
        auto original = std::make_unique<Register>(QStringLiteral("T"), 2, 8, 3, 1);
        ToSignedValueTransformer toSigned;
        original->setDescription(QStringLiteral("D"));
        original->setRange(-100, 0.5, 100);
        original->setValueTransformer(&toSigned);
        original->setValue(0x42ULL);
        const std::unique_ptr<Register> copy(original->clone());
        QCOMPARE(static_cast<QString>(*copy), static_cast<QString>(*original));
        QCOMPARE(copy->getDescription(), QString("D"));
        QCOMPARE(copy->getTick(), 0.5);
        QCOMPARE(copy->getDecimals(), quint8(1));
        QVERIFY(copy->wasWritten() && !copy->setValue(101ULL) && copy->setValue(-100));
        original->resetWasWritten();
        QVERIFY(!std::unique_ptr<Register>(original->clone())->wasWritten());

        original->addRestrictedValue(0x42);
        const std::unique_ptr<Register> free(original->clone());
        QCOMPARE(static_cast<Raw>(*free), 0x42ULL); // restrictions are not copied
        original->setAccess(1);
        const std::unique_ptr<Register> readOnly(original->clone());
        QCOMPARE(static_cast<Raw>(*readOnly), 1ULL);
        QVERIFY(!readOnly->wasWritten());

        original->setValueTransformer(nullptr);
        const std::unique_ptr<Register> outlives(original->clone());
        original.reset();
        QCOMPARE(static_cast<double>(*outlives), 1.0);
    }
};

AXR_TEST_MAIN(RegisterTest)
#include "RegisterTest.moc"
