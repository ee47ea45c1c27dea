#ifndef PARAMETER_H
#define PARAMETER_H

#include <QString>

/// Description of one device parameter, as a host hands it to SpinBox::setUnitParameter().
struct Parameter {
    QString name;
    QString unit;        ///< Empty: the parameter has no unit.
    QString unitFormat;  ///< Text behind the value; "%1 " at its start takes the real value.
    double factor = 1.0; ///< Real units per device unit.
    int number = 0;      ///< Axis parameter number.
    int minimum = 0;     ///< Smallest value in device units.
    int maximum = 0;     ///< Largest value in device units.
    bool valid = false;  ///< False when the connected module has no such parameter.
};

#endif
