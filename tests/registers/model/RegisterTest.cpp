#include "Register.h"
#include "DefaultValueTransformer.h"
#include "FixedPointValueTransformer.h"
#include "TestCase.h"
#include "ToSignedValueTransformer.h"

#include <cmath>
#include <tuple>

namespace
{

using Raw = unsigned long long;
constexpr Raw Ones = ~Raw(0);
constexpr Raw Top = Raw(1) << 63;
constexpr Raw TopTwo = Raw(3) << 62;
constexpr double T63 = 9223372036854775808.0; // 2^63
constexpr double T64 = 2 * T63;

Register field(int width = 8, int access = 3, Raw reset = 0)
{
    return Register(QStringLiteral("F"), 0xAB, quint8(width), access, reset);
}

Raw rawOf(const Register& of) { return of; }

/// For the message of a row that fails.
QByteArray row(int width, Raw raw, double physical = 0)
{
    return QString::asprintf("width %d, raw 0x%llx, value %.17g", width, raw, physical).toUtf8();
}

} // namespace

class RegisterTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void firstOneIsAnnounced()
    {
        const Register first = field();
        const Register second = field();
        QVERIFY(QMetaType::type("Register") != QMetaType::UnknownType);
        const QString line = "Register::Register(QString, quint8, quint8, int, quint64) Register: ";
        QCOMPARE(debugLines(), QStringList(line + QString::number(QMetaType::type("Register"))));
    }

    void conversions()
    {
        ValueTransformer plain;
        DefaultValueTransformer bits;
        ToSignedValueTransformer whole;
        FixedPointValueTransformer fixed(4, false), sfix(4, true), tiny(63, false);
        const std::tuple<ValueTransformer*, int, Raw, double> readings[] = {
            {&plain, 0, Ones, T64},     {&plain, 8, 511, 511},  {&bits, 0, Ones, 0.0},
            {&bits, 1, Ones, 1.0},      {&bits, 8, 511, 255},   {&bits, 16, Ones, 65535},
            {&bits, 64, Top, T63},      {&bits, 65, Top, T63},  {&whole, 0, Ones, 0},
            {&whole, 1, 0, 0},          {&whole, 1, 1, -1},     {&whole, 8, 0x7F, 127},
            {&whole, 8, 0x80, -128},    {&whole, 8, 0x17F, -1}, {&whole, 64, Top, -T63},
            {&whole, 64, Top - 1, T63}, {&whole, 65, Top, T63}, {&fixed, 8, 0x1A8, 10.5},
            {&sfix, 8, 0xA8, -5.5},     {&sfix, 0, Ones, 0.0},  {&tiny, 64, Top, 1.0}};
        for (const auto& [by, width, raw, physical] : readings)
            QVERIFY2(by->get(raw, quint8(width)) == physical, row(width, raw, physical));
        const std::tuple<ValueTransformer*, double, Raw> writings[] = {
            {&plain, 2.90, 0x02},      {&bits, 2.90, 0x02},        {&bits, -2.9, Ones - 1},
            {&bits, T63, Top},         {&bits, T63 * 1.5, TopTwo}, {&bits, T64, Ones},
            {&bits, -T63 / 2, TopTwo}, {&bits, -T63 * 1.5, Top},   {&bits, qQNaN(), 0},
            {&whole, 2.50, 0x03},      {&whole, -2.5, Ones - 2},   {&whole, qInf(), Ones},
            {&whole, -qInf(), Top},    {&fixed, 10.53125, 169},    {&sfix, -5.53125, Ones - 88},
            {&tiny, 1e300, Ones}};
        for (const auto& [by, physical, raw] : writings)
            QVERIFY2(by->get(physical, 8) == raw, row(8, raw, physical));
    }

    void rangeOfAWidth()
    {
        const std::tuple<int, double, double> rows[] = {
            {0, 0, 0}, {1, 0, 1}, {2, -1, 3}, {8, -127, 255}, {64, -T63, T64}};
        for (const auto& [width, min, max] : rows) {
            Register ranged = field(width);
            QVERIFY2(ranged.getMin() == min && ranged.getMax() == max, row(width, 0, min));
            QVERIFY(std::signbit(ranged.getMin()) == (min < 0) && ranged.getDecimals() == 0);
            ranged.setRange(qQNaN(), qQNaN(), 0);
            ranged.setRange(-qInf(), qInf(), 1);
            ranged.setMin(qQNaN());
            ranged.setMax(qQNaN());
            QVERIFY(ranged.getMin() == min && ranged.getMax() == max && ranged.getTick() == 1);
        }
    }

    void rawValuesAboveTheWidth()
    {
        const std::tuple<int, Raw, bool> rows[] = {
            {0, 0, true},     {0, 1, false},   {0, Ones, true},     {8, 255, true},
            {8, 256, false},  {8, Ones, true}, {8, ~0xFFULL, true}, {8, ~0x1FFULL, false},
            {8, Top, false},  {63, Top, true}, {62, Top, false},    {64, Top, true},
            {64, Ones, true}, {200, Top, true}};
        for (const auto& [width, raw, isTaken] : rows) {
            Register taking = field(width, 3, 7);
            QVERIFY2(taking.checkValue(raw) == isTaken, row(width, raw));
            QVERIFY(rawOf(taking) == 7 && !taking.wasWritten());
            QVERIFY(taking.setValue(raw) == isTaken && taking.wasWritten() == isTaken);
            QCOMPARE(rawOf(taking), isTaken ? raw : 7);
        }
    }

    /// The value as it is given and the nearest tick have to be allowed, both ends included.
    void physicalValues()
    {
        // tick, value, restricted raw value, the raw value that is set (-1: refused), checked
        const std::tuple<double, double, int, int, bool> rows[] = {
            {1, 0.8, 99, -1, false},    {1, 0.9, 99, 1, true},   {1, 5.1, 99, 5, true},
            {1, 5.2, 99, -1, false},    {1, 2.4, 3, 2, true},    {1, 2.4, 2, -1, false},
            {2, 2.4, 3, 2, true},       {0, 2.4, 3, 2, true},    {0.5, 2.4, 99, 2, true},
            {0.5, 2.4, 3, -1, false},   {0.5, 2.4, 2, -1, true}, {0.5, 2.2, 3, 2, true},
            {1, qQNaN(), 99, -1, false}};
        ToSignedValueTransformer rounds;
        for (const auto& [tick, value, restricted, raw, isChecked] : rows) {
            Register taking = field(8, 3, 42);
            taking.setValueTransformer(&rounds);
            taking.setRange(5.1, tick, 0.9);
            taking.addRestrictedValue(Raw(restricted));
            QVERIFY2(taking.checkValue(value) == isChecked, row(8, Raw(restricted), value));
            QVERIFY2(taking.setValue(value) == (raw >= 0), row(8, Raw(restricted), value));
            QCOMPARE(rawOf(taking), Raw(raw >= 0 ? raw : 42));
        }
        Register single = field();
        single.setMin(21);
        single.setMax(21);
        QVERIFY(!single.setValue(20) && single.setValue(21) && !single.setValue(22));
    }

    void readersAndWriters()
    {
        Register taking = field(8, 3, 9);
        taking.addRestrictedValue(9);
        taking.addRestrictedValue(255);
        QVERIFY(!taking.setValue(9) && !taking.checkValue(255U) && !taking.wasWritten());
        QVERIFY(taking.setValue(5U) && rawOf(taking) == 5);
        QVERIFY(taking.setValue(-1L) && rawOf(taking) == Ones); // another one than 255
        QVERIFY(taking.setValue(uint64_t(6)) && rawOf(taking) == 6);
        QVERIFY(taking.setValue(static_cast<signed char>(-4)) && taking.wasWritten());
        Raw raw = 0;
        int low = 0;
        double number = 0;
        taking.getValue(&raw);
        taking.getValue(&low);
        taking.getValue(&number);
        taking.getValue(static_cast<Raw*>(nullptr));
        taking.getValue(static_cast<int*>(nullptr));
        taking.getValue(static_cast<double*>(nullptr));
        QVERIFY(raw == Ones - 3 && low == -4 && number == 252 &&
                static_cast<long long>(taking) == -4);
        taking.reset();
        QVERIFY(rawOf(taking) == 9 && taking.wasWritten());
        taking.resetWasWritten();
        QVERIFY(!taking.wasWritten());
    }

    void decimalsOfATick()
    {
        const std::tuple<double, int, int> rows[] = {
            {1, 0, 0},    {0, 0, 0},       {-4, 0, 0},      {0.25, 2, 2},     {0.1, 1, 1},
            {0.07, 3, 3}, {1e-50, 50, 50}, {1e-51, 51, 51}, {1.0 / 3, 15, 18}};
        Register shown = field();
        for (const auto& [tick, least, most] : rows) {
            shown.setTick(tick);
            QVERIFY2(shown.getDecimals() >= least && shown.getDecimals() <= most, row(8, 0, tick));
        }
    }

    void accessAndText()
    {
        const std::pair<int, QString> rows[] = {
            {0, " NONE"},           {1, " READ"},        {2, " WRITE"}, {3, " READ_WRITE"},
            {7, " WRITE_X_READ_Y"}, {15, " READ_CLEAR"}, {4, " NONE"},  {18, " NONE"}};
        for (const auto& [access, text] : rows) {
            const Register shown = field(8, access, 0xA5);
            QCOMPARE(QString(shown), "\nF: 8Bit @ 0xAB(171) = 0xA5(165) -> Access: " + text);
            const bool isWritable = access / 2 % 2 == 1;
            QVERIFY(shown.checkValue(1.0) == isWritable && shown.checkValue(1) == isWritable);
        }
        ToSignedValueTransformer whole;
        Register wide = field(64, 3, Ones - 0xAB);
        wide.setValueTransformer(&whole);
        QVERIFY(QString(wide).contains(" = 0xFFFFFFFFFFFFFF54(-172) -> "));
        wide.setValueTransformer(nullptr);
        QVERIFY(QString(wide).contains("(1.844674407e+19)"));
    }

    void clones()
    {
        std::unique_ptr<Register> original(new Register("F", 1, 8, 3, 1));
        const auto clone = [&original] { return std::unique_ptr<Register>(original->clone()); };
        ToSignedValueTransformer whole;
        original->setDescription(QStringLiteral("D"));
        original->setRange(-100, 0.5, 100);
        original->setValueTransformer(&whole);
        original->setValue(0x42);
        const auto copy = clone();
        QCOMPARE(QString(*copy) + copy->getDescription(), QString(*original) + "D");
        QVERIFY(copy->getTick() == 0.5 && copy->getDecimals() == 1 && copy->wasWritten());
        QVERIFY(!copy->setValue(101) && !copy->setValue(-101) && copy->setValue(-100));
        original->resetWasWritten();
        original->addRestrictedValue(0x42); // not copied
        QVERIFY(rawOf(*clone()) == 0x42 && !clone()->wasWritten());
        original->setAccess(1);
        QCOMPARE(rawOf(*clone()), 1ULL);
        original->setValueTransformer(nullptr);
        const auto outlives = clone();
        original.reset();
        QCOMPARE(static_cast<double>(*outlives), 1.0);
    }
};

AXR_TEST_MAIN(RegisterTest)
#include "RegisterTest.moc"
