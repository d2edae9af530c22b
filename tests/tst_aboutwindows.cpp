#include <QEnterEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "app/app.h"
#include "auxwindows/owner.h"
#include "auxwindows/windowabout.h"
#include "auxwindows/windowabout2.h"
#include "platform/readablecolour.h"
#include "platform/sharedwindow.h"
#include "support/testenvironment.h"

namespace {
template <class Control = QWidget>
Control* control(QWidget* window, const char* name) {
    return window->findChild<Control*>(name);
}
void enter(QWidget* widget) {
    QEnterEvent event(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QCoreApplication::sendEvent(widget, &event);
}
void leave(QWidget* widget) {
    QEvent event(QEvent::Leave);
    QCoreApplication::sendEvent(widget, &event);
}
void deleteClosedWindows() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
}  // namespace

class AboutWindowsTest : public QObject {
    Q_OBJECT
    const QPalette light = QApplication::palette();

private slots:
    void init() {
        TestEnvironment::desktop().clear();
        QVERIFY(App::instance()->_About_Action());
    }
    void cleanup() {
        if (WindowAbout* about = existingInstance<WindowAbout>()) about->close();
        deleteClosedWindows();
        QApplication::setPalette(light);
    }

    void theSiteLinkTurnsRedInsideAndStaysBlueAfter_data() {
        QTest::addColumn<QColor>("window");
        QTest::newRow("light") << light.color(QPalette::Window);
        QTest::newRow("dark") << QColor(40, 40, 40);
    }
    void theSiteLinkTurnsRedInsideAndStaysBlueAfter() {
        QFETCH(QColor, window);
        cleanup();
        QPalette palette = light;
        palette.setColor(QPalette::Window, window);
        QApplication::setPalette(palette);
        App::instance()->_About_Action();
        WindowAbout* about = existingInstance<WindowAbout>();
        QCOMPARE(control<QLabel>(about, "Label3")->text(),
                 "v.2.1 - " + owner::maker + " - December 2020");
        QLabel* link = control<QLabel>(about, "Label4");
        // The design's colours on a light window; on a dark one, the same hues, readable.
        const auto shows = [&](const QColor& design) {
            const QColor shown = link->palette().color(QPalette::WindowText);
            if (window == light.color(QPalette::Window)) return shown == design;
            return contrastRatio(shown, window) >= 4.5 && shown.hue() == design.hue();
        };
        QVERIFY(shows(Qt::black));
        enter(link);
        QVERIFY(shows(QColor(255, 0, 0)));
        QCOMPARE(link->cursor().shape(), Qt::PointingHandCursor);
        leave(link);
        QVERIFY(shows(QColor(0, 0, 255)));
        QCOMPARE(link->cursor().shape(), Qt::ArrowCursor);
        enter(link);
        leave(link);
        QVERIFY(shows(QColor(0, 0, 255)));
        QTest::mouseClick(link, Qt::LeftButton);
        QCOMPARE(TestEnvironment::desktop().urls, QStringList{link->text()});
    }

    void donatingHidesTheWindowBeforeTheBrowserOpens() {
        WindowAbout* about = existingInstance<WindowAbout>();
        bool visibleAtBrowser = true;
        TestEnvironment::desktop().onShowURL = [&](const QString&) {
            visibleAtBrowser = about->isVisible();
        };
        QTest::mouseClick(control<QPushButton>(about, "BevelButton1"), Qt::LeftButton);
        QCOMPARE(TestEnvironment::desktop().urls,
                 QStringList{"http://" + owner::donationHost + "/paypal.php?app=Velmora"});
        QVERIFY(!visibleAtBrowser);
        deleteClosedWindows();
        // Hidden, not closed: the next opening shows the same window.
        QCOMPARE(existingInstance<WindowAbout>(), about);
        App::instance()->_About_Action();
        QCOMPARE(existingInstance<WindowAbout>(), about);
        QVERIFY(about->isVisible());
    }

    void theLogoMagnifiesAndOpensOneLargeWindowThatAClickCloses() {
        QWidget* logo = control(existingInstance<WindowAbout>(), "ImageWell1");
        enter(logo);
        QCOMPARE(logo->cursor().shape(), Qt::BitmapCursor);
        QVERIFY(QRect(QPoint(), logo->cursor().pixmap().deviceIndependentSize().toSize())
                    .contains(logo->cursor().hotSpot()));
        leave(logo);
        QCOMPARE(logo->cursor().shape(), Qt::ArrowCursor);

        QTest::mouseClick(logo, Qt::LeftButton);
        WindowAbout2* large = existingInstance<WindowAbout2>();
        QVERIFY(large && large->isVisible());
        QTest::mouseClick(logo, Qt::LeftButton);
        QCOMPARE(existingInstance<WindowAbout2>(), large);
        QCOMPARE(existingInstance<WindowAbout>()->findChildren<WindowAbout2*>().size(), 1);
        QTest::mouseClick(control(large, "ImageWell1"), Qt::LeftButton);
        deleteClosedWindows();
        QVERIFY(!existingInstance<WindowAbout2>());

        QTest::mouseClick(control<QPushButton>(existingInstance<WindowAbout>(), "PushButtonClose"),
                          Qt::LeftButton);
        deleteClosedWindows();
        QVERIFY(!existingInstance<WindowAbout>());
    }
};

VELMORA_TEST_MAIN(AboutWindowsTest)
#include "tst_aboutwindows.moc"
