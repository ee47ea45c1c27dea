#include "TestCase.h"
class RegisterSetTest : public TestCase
{
    Q_OBJECT
};
AXR_TEST_MAIN(RegisterSetTest)
#include "RegisterSetTest.moc"
