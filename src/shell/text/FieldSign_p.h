#ifndef FIELDSIGN_P_H
#define FIELDSIGN_P_H

class QPainter;
class QRect;

/// What a number field has to say beside its number, least urgent first.
enum class FieldSign {
    None,
    Pending,     ///< An entry waits for Return.
    Overwritten, ///< The module just replaced an entry.
    Cut,         ///< Not all digits have room.
    Outside,     ///< The entry is out of range, and Return does not send it.
    Less,        ///< The field was told less than its range lets it show.
    More         ///< The field was told more than its range lets it show.
};

/// Fills the rectangle with the sign: a badge in colours of its own, legible on any field, with a
/// glyph that tells it from the others without the colours. Nothing for None.
void paintFieldSign(QPainter& painter, const QRect& badge, FieldSign sign);

#endif
