#include <AXRGuiVersion.h>
#include <QApplication>
#include <VelocityControl.h>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    VelocityControl panel;
    panel.setActualVelocityCommandAndRange(3, -4000, 4000);
    return panel.getActualVelocityCommand() == 3 && AXRGUI_VERSION > 0 ? 0 : 1;
}
