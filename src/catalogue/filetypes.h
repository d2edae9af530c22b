#pragma once

#include <QList>
#include <QString>

// A kind of file that the main window announces as droppable.
struct FileType {
    QString Name;
    QString Extensions;  // joined by ";"
    QString MacType;
    QString MacCreator;
    QString MimeType;
    QString UTI;
    QString ConformsTo;
    bool Imported = false;

    // The type's Name; the first conversion also registers the type with the platform.
    QString toText();
    bool isRegistered() const { return registered_; }

private:
    bool registered_ = false;
};

// The 21 file types the program knows, set up once at start.
namespace fileTypes {

void initialise();

FileType& Pdf();
FileType& Jpeg();
FileType& Png();
FileType& ImageGif();
FileType& ImageTiff();
FileType& ImageXBmp();
FileType& ImageXMacpict();
FileType& ImageXPict();
FileType& ImageXPng();
FileType& ImageXQuicktime();
FileType& ImageXRgb();
FileType& ImageXSgi();
FileType& ImageXTarga();
FileType& ImageXTiff();
FileType& ImageXPbm();
FileType& SpecialFolder();
FileType& Any();
FileType& Untitled();
FileType& ImagePsd();
FileType& ImagePict();
FileType& ImageJpeg2000();

// All 21 in table order.
const QList<FileType*>& pAllFileTypes();

// The 21 names joined by ";", as one fixed text.
QString All();

// The names of the types registered with the platform so far, in order of registration.
const QStringList& registeredNames();

// The Name of the first type, in table order, whose Extensions name `extension` (compared
// without case and without a leading dot); empty when none does.
QString typeOfExtension(const QString& extension);

}  // namespace fileTypes
