#include "TestCase.h"
class RegisterTest : public TestCase
{
    Q_OBJECT
};
AXR_TEST_MAIN(RegisterTest)
#include "RegisterTest.moc"
