#include "OwnAddressPanel.h"

OwnAddressPanel::OwnAddressPanel(QWidget* parent) : TupleSettingsPanel(parent) {}

OwnAddressPanel::~OwnAddressPanel() = default;
