#ifndef METHODNAME_H
#define METHODNAME_H

#include <QByteArray>

/// Class and method of a function's signature text, as debug lines begin: "Class::method()". It is
/// the text behind the last blank before the last "::", up to the "(".
QByteArray methodName(const char* signature);

/// The method in which this stands.
#define AXR_METHOD methodName(Q_FUNC_INFO)

#endif
