#include <QEnterEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "app/app.h"
#include "auxwindows/owner.h"
#include "auxwindows/windowabout.h"
#include "auxwindows/windowabout2.h"
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
QColor textColour(QWidget* label) {
    return label->palette().color(QPalette::WindowText);
}
void deleteClosedWindows() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
}  // namespace

class AboutWindowsTest : public QObject {
    Q_OBJECT
private slots:
    void init() {
        TestEnvironment::desktop().clear();
        QVERIFY(App::instance()->_About_Action());
    }
    void cleanup() {
        if (WindowAbout* about = existingInstance<WindowAbout>()) about->close();
        deleteClosedWindows();
    }

    void theSiteLinkTurnsRedInsideAndStaysBlueAfter() {
        WindowAbout* about = existingInstance<WindowAbout>();
        QCOMPARE(control<QLabel>(about, "Label3")->text(),
                 "v.2.1 - " + owner::maker + " - December 2020");
        QLabel* link = control<QLabel>(about, "Label4");
        QCOMPARE(textColour(link), QColor(Qt::black));
        enter(link);
        QCOMPARE(textColour(link), QColor(255, 0, 0));
        QCOMPARE(link->cursor().shape(), Qt::PointingHandCursor);
        leave(link);
        QCOMPARE(textColour(link), QColor(0, 0, 255));
        QCOMPARE(link->cursor().shape(), Qt::ArrowCursor);
        enter(link);
        leave(link);
        QCOMPARE(textColour(link), QColor(0, 0, 255));
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

    void theLogoOpensOneLargeWindowThatAClickCloses() {
        QWidget* logo = control(existingInstance<WindowAbout>(), "ImageWell1");
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
