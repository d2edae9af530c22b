#include <QTest>

#include "catalogue/filetypes.h"
#include "catalogue/stripextension.h"
#include "support/testenvironment.h"

class FileNamesTest : public QObject {
    Q_OBJECT
private slots:
    void onlyAKnownLastExtensionIsStripped_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("listName");
        QTest::newRow("lower") << "photo.jpg"
                               << "photo";
        QTest::newRow("upper") << "PHOTO.JPG"
                               << "PHOTO";
        QTest::newRow("mixed case folds") << "photo.Jpg"
                                          << "photo";
        QTest::newRow("last dot only") << "holiday.2019.beach.png"
                                       << "holiday.2019.beach";
        QTest::newRow("no dot") << "README"
                                << "README";
        QTest::newRow("empty") << ""
                               << "";
        QTest::newRow("unknown") << "archive.tar.gz"
                                 << "archive.tar.gz";
        QTest::newRow("known then unknown") << "photo.jpeg.bak"
                                            << "photo.jpeg.bak";
        QTest::newRow("ends in dot") << "photo."
                                     << "photo.";
        QTest::newRow("only an extension") << ".jpg"
                                           << "";
        QTest::newRow("double dot") << "a..tif"
                                    << "a.";
        QTest::newRow("pict stays") << "scan.pict"
                                    << "scan.pict";
        QTest::newRow("jp2 stays") << "scan.jp2"
                                   << "scan.jp2";
        QTest::newRow("jpe stays") << "scan.jpe"
                                   << "scan.jpe";
        QTest::newRow("non-ascii") << "Café Zürich.png"
                                   << "Café Zürich";
        QTest::newRow("hidden file") << ".hidden"
                                     << ".hidden";
    }
    void onlyAKnownLastExtensionIsStripped() {
        QFETCH(QString, name);
        QFETCH(QString, listName);
        QCOMPARE(stripExtension(name), listName);
    }

    void theFileTypeTableStandsAsKept() {
        const auto& all = fileTypes::pAllFileTypes();
        QCOMPARE(all.size(), 21);
        QStringList names;
        for (const FileType* type : all) names.append(type->Name);
        QCOMPARE(names.join(u';'), fileTypes::All());
        QCOMPARE(fileTypes::All().size(), 269);
        QVERIFY(fileTypes::All().contains("special/folder;special/any"));

        QCOMPARE(fileTypes::Pdf().MacType, QString("PDF "));
        QCOMPARE(fileTypes::ImageJpeg2000().MacType, QString("jp2 "));
        QCOMPARE(fileTypes::ImageXRgb().MacType, QString(".SGI"));
        QCOMPARE(fileTypes::ImagePsd().Extensions, QString("psd"));
        QCOMPARE(fileTypes::ImageXPbm().Name, QString("image/pbm"));
        QCOMPARE(fileTypes::Untitled().Name, QString("image/jpg-stereo"));
        QCOMPARE(fileTypes::Untitled().MacCreator, QString());
        QCOMPARE(fileTypes::Png().Extensions, fileTypes::ImageXPng().Extensions);
        for (const FileType* type : all) {
            QVERIFY(type->Imported);
            QVERIFY(type->MimeType.isEmpty());
            QVERIFY(type->isRegistered());
        }
    }

    void aTypeRegistersOnce() {
        // Start-up registered every type once already; converting again registers nothing.
        const qsizetype before = fileTypes::registeredNames().size();
        QCOMPARE(before, 21);
        QCOMPARE(fileTypes::Jpeg().toText(), QString("image/jpeg"));
        QCOMPARE(fileTypes::registeredNames().size(), before);
        QCOMPARE(fileTypes::registeredNames().count("image/png"), 1);
    }

    void aFilesTypeIsTheFirstRowNamingItsExtension() {
        QCOMPARE(fileTypes::typeOfExtension("jpg"), QString("image/jpeg"));
        QCOMPARE(fileTypes::typeOfExtension(".JPEG"), QString("image/jpeg"));
        QCOMPARE(fileTypes::typeOfExtension("png"), QString("image/png"));
        QCOMPARE(fileTypes::typeOfExtension("tif"), QString("image/tiff"));
        QCOMPARE(fileTypes::typeOfExtension("pict"), QString("image/x-macpict"));
        QCOMPARE(fileTypes::typeOfExtension("rgb"), QString("image/x-rgb"));
        QCOMPARE(fileTypes::typeOfExtension("psd"), QString("image/psd"));
        QCOMPARE(fileTypes::typeOfExtension("webp"), QString());
        QCOMPARE(fileTypes::typeOfExtension(""), QString());
    }
};

VELMORA_TEST_MAIN(FileNamesTest)
#include "tst_filenames.moc"
