#ifndef BYTES_H
#define BYTES_H

#include <QtGlobal>

/// The unsigned value of a byte that travels as `char`, which is signed on most machines:
/// `reply->getCommand() == 142` is never true there. Compare and print bytes through this.
constexpr quint8 u8(char byte) { return static_cast<quint8>(byte); }

/// The low byte of a number, as it goes into a Command.
constexpr char toByte(int number) { return static_cast<char>(static_cast<quint8>(number)); }

#endif
