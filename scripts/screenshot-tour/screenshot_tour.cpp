// Opens every window of Velmora on the X display it is given, drives each into the state worth
// seeing, and saves a picture of the whole screen there. It runs the real windows and their
// real handlers; only the message boxes and the browser are replaced by recording doubles.
//
// Usage: screenshot_tour OUTPUT_DIR   (on an X display, e.g. under xvfb-run)

#include <QAction>
#include <QDir>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QUrl>
#include <cstdio>
#include <stdexcept>

#include "auxwindows/aboutwindow.h"
#include "auxwindows/helpwindow.h"
#include "auxwindows/logowindow.h"
#include "auxwindows/progresswindow.h"
#include "mainwindow/mainmenubar.h"
#include "mainwindow/mainwindow.h"
#include "platform/dialogs.h"
#include "platform/sharedwindow.h"
#include "preferences/preferenceswindow.h"
#include "preview/imagecanvas.h"
#include "samplefolders.h"
#include "support/testenvironment.h"

namespace {

// The count at which the progress window is caught during the walk of the large folder.
const QString kProgressCaught = QStringLiteral("120 images added, please wait.");
constexpr int kManyPictures = 300;
constexpr int kSettleMilliseconds = 400;

template <class W>
W* control(QWidget* window, const char* name) {
    W* found = window->findChild<W*>(name);
    if (!found) throw std::runtime_error(std::string("no control named ") + name);
    return found;
}

template <class Window>
Window* openWindow() {
    Window* window = existingInstance<Window>();
    if (!window || !window->isVisible())
        throw std::runtime_error(std::string("window did not open: ") +
                                 Window::staticMetaObject.className());
    return window;
}

// Drags `folder` onto `target` and drops it there, as a file manager does.
void dropFolder(QWidget* target, const QString& folder) {
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(folder)});
    const QPoint at = target->rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton,
                          Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    QDropEvent drop(at, Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &drop);
}

// Types `text` into `field` key by key. QTest's key helpers know only ASCII letters.
void typeInto(QWidget* field, const QString& text) {
    for (const QChar letter : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
        QCoreApplication::sendEvent(field, &press);
        QKeyEvent release(QEvent::KeyRelease, 0, Qt::NoModifier, QString(letter));
        QCoreApplication::sendEvent(field, &release);
    }
}

class Tour {
public:
    explicit Tour(const QString& outputDir) : output_(outputDir) {}

    void run() {
        App::instance()->start();
        main_ = App::instance()->mainWindow();
        if (!QTest::qWaitForWindowExposed(main_)) throw std::runtime_error("main window unseen");
        settle();
        grab("01-main-at-start");

        progressDuringDrop();
        clearList();
        galleryDropped();
        reopened();
        help();
        about();
        preferences();
        if (!unsaved_.isEmpty())
            throw std::runtime_error("cannot save " + unsaved_.join(", ").toStdString());
    }

private:
    void progressDuringDrop() {
        const QString folder = samplefolders::writeMany(pictures_.path(), kManyPictures);
        bool caught = false;
        // The label is written after the signal, so at the signal it still holds the count of
        // the round before; repainting it now shows that count.
        const auto connection = QObject::connect(
            &App::instance()->gallery().images(), &ImageCatalogue::progressTextChanged, [&] {
                ProgressWindow* progress = existingInstance<ProgressWindow>();
                if (caught || !progress || progress->countText() != kProgressCaught) return;
                progress->refresh(ProgressWindow::Repaint::Now);
                grab("03-progress-during-drop");
                caught = true;
            });
        dropFolder(main_, folder);
        QObject::disconnect(connection);
        if (!caught) throw std::runtime_error("the walk never reached the caught count");
        settle();
    }

    // The gallery starts from an empty list; "Clear all" asks first, and the tour answers Yes.
    void clearList() {
        TestEnvironment::dialogs().answers.enqueue(true);
        control<QPushButton>(main_, "clearListButton")->click();
        if (App::instance()->gallery().images().imageCount() != 0)
            throw std::runtime_error("the list stayed full");
        settle();
    }

    void select(const QString& name) {
        ImageCatalogue& catalogue = App::instance()->gallery().images();
        for (int row = 0; row < catalogue.imageCount(); ++row)
            if (catalogue.cell(row, CatalogueRow::FileName) == name) catalogue.selectRow(row);
        settle();
    }

    void galleryDropped() {
        gallery_ = samplefolders::writeGallery(pictures_.path());
        dropFolder(main_, gallery_);
        settle();
        // A photo stored sideways shows upright.
        select(QStringLiteral("Château d'Èze.jpg"));
        grab("02-main-portrait-photo");
        ImageCatalogue& catalogue = App::instance()->gallery().images();
        for (int row = 0; row < catalogue.imageCount(); ++row)
            if (catalogue.cell(row, CatalogueRow::FileName) == QStringLiteral("Plage à Nice.jpg"))
                catalogue.moveRowsTo({row}, 0);
        catalogue.selectRow(0);
        settle();
        typeInto(control<QLineEdit>(main_, "captionField"),
                 QStringLiteral("Sunset over the Baie des Anges, à bientôt!"));
        typeInto(control<QLineEdit>(main_, "titleField"), QStringLiteral("Côte d'Azur"));
        // What the preferences' OK does with a frame chosen.
        Preferences& preferences = App::instance()->preferences();
        preferences.frameWidth = 8;
        preferences.frameColour = QColor(0xFF, 0x8C, 0x00);
        emit preferences.previewFrameChanged();
        settle();
        grab("02-main-with-gallery");
    }

    // The page of the gallery is written, the list cleared and the folder dropped again: the real
    // question box comes up, is caught on screen and answered Yes.
    void reopened() {
        control<QPushButton>(main_, "writePageButton")->click();
        clearList();
        // As after a restart: the title comes back from the page.
        control<QLineEdit>(main_, "titleField")->clear();
        platform::installDialogs(nullptr);
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [this, &poll] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box || !box->isVisible()) return;
            poll.stop();
            QTimer::singleShot(kSettleMilliseconds, box, [this, box] {
                grab("10-reopen-question");
                box->button(QMessageBox::Yes)->click();
            });
        });
        poll.start(50);
        dropFolder(main_, gallery_);
        platform::installDialogs(&TestEnvironment::dialogs());
        if (App::instance()->gallery().images().cell(0, CatalogueRow::Caption).isEmpty())
            throw std::runtime_error("the gallery was not reopened");
        settle();
        grab("11-main-reopened");
    }

    void help() {
        control<QToolButton>(main_, "helpButton")->click();
        HelpWindow* window = openWindow<HelpWindow>();
        settle();
        grab("04-help-english");
        auto* tabs = control<QTabWidget>(window, "languageTabs");
        tabs->setCurrentIndex(5);
        settle();
        grab("05-help-nihongo");
        tabs->setCurrentIndex(6);
        settle();
        grab("06-help-zhongwen");
        control<QPushButton>(window, "PushButton1")->click();
        settle();
    }

    void about() {
        App::instance()->menuBar().aboutItem->trigger();
        AboutWindow* window = openWindow<AboutWindow>();
        settle();
        grab("07-about");
        QTest::mouseClick(control<QLabel>(window, "logo"), Qt::LeftButton);
        LogoWindow* logo = openWindow<LogoWindow>();
        settle();
        grab("08-about-logo");
        QTest::mouseClick(control<QLabel>(logo, "logo"), Qt::LeftButton);
        control<QPushButton>(window, "closeButton")->click();
        settle();
    }

    void preferences() {
        App::instance()->menuBar().preferencesItem->trigger();
        PreferencesWindow* window = openWindow<PreferencesWindow>();
        settle();
        grab("09-preferences");
        control<QPushButton>(window, "PushButton1")->click();
        settle();
    }

    static void settle() {
        QCoreApplication::processEvents();
        QTest::qWait(kSettleMilliseconds);
    }

    // Does not throw: it also runs inside the drop event, where the application would take
    // the exception for its own and carry on.
    void grab(const QString& name) {
        const QString path = QDir(output_).filePath(name + QStringLiteral(".png"));
        if (QGuiApplication::primaryScreen()->grabWindow(0).save(path))
            std::printf("%s\n", qPrintable(path));
        else
            unsaved_ << path;
    }

    QString output_;
    QStringList unsaved_;
    QTemporaryDir pictures_;
    MainWindow* main_ = nullptr;
    QString gallery_;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s OUTPUT_DIR\n", argv[0]);
        return 2;
    }
    const QString outputDir = QString::fromLocal8Bit(argv[1]);
    // A real display, not the tests' offscreen one.
    qputenv("QT_QPA_PLATFORM", "xcb");
    TestEnvironment environment;
    App app(argc, argv);
    try {
        Tour(outputDir).run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "screenshot tour: %s\n", error.what());
        return 1;
    }
    return 0;
}
