#ifndef GALLERY_H
#define GALLERY_H

#include <QString>

/// Photographs every widget class of the library, off and on the theme, at each font size, enabled
/// and disabled, and writes index.html that shows the pictures side by side.
class Gallery
{
public:
    /// \param folder made when it is missing; files in it are overwritten
    explicit Gallery(const QString& folder) : m_folder(folder) {}

    /// False when something could not be written.
    bool write() const;

private:
    QString m_folder;
};

#endif
