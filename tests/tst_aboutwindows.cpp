#include <QEnterEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "app/app.h"
#include "auxwindows/owner.h"
#include "auxwindows/velmorahelp.h"
#include "auxwindows/windowabout.h"
#include "auxwindows/windowabout2.h"
#include "auxwindows/windowprogess.h"
#include "mainwindow/windowmain.h"
#include "platform/narrowtofit.h"
#include "platform/readablecolour.h"
#include "platform/sharedwindow.h"
#include "preferences/windowpreferences.h"
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
// Whether the text of `label` fits its box, as the label itself measures the room it takes.
bool fits(const QLabel* label) {
    if (label->wordWrap()) return label->heightForWidth(label->width()) <= label->height();
    const QSize needed = label->sizeHint();
    return needed.width() <= label->width() && needed.height() <= label->height();
}
WindowAbout* openAbout() {
    App::instance()->_About_Action();
    return existingInstance<WindowAbout>();
}
}  // namespace

class AboutWindowsTest : public QObject {
    Q_OBJECT
    const QPalette light = QApplication::palette();

private slots:
    void init() { TestEnvironment::desktop().clear(); }
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
        QPalette palette = light;
        palette.setColor(QPalette::Window, window);
        QApplication::setPalette(palette);
        QLabel* link = control<QLabel>(openAbout(), "Label4");
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
        WindowAbout* about = openAbout();
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
        QCOMPARE(openAbout(), about);
        QVERIFY(about->isVisible());
    }

    void theLogoMagnifiesAndOpensOneLargeWindowThatAClickCloses() {
        WindowAbout* about = openAbout();
        QWidget* logo = control(about, "ImageWell1");
        enter(logo);
        const QCursor magnifier = logo->cursor();
        QCOMPARE(magnifier.shape(), Qt::BitmapCursor);
        QVERIFY(QRect(QPoint(), magnifier.pixmap().deviceIndependentSize().toSize())
                    .contains(magnifier.hotSpot()));
        leave(logo);
        QCOMPARE(logo->cursor().shape(), Qt::ArrowCursor);

        QTest::mouseClick(logo, Qt::LeftButton);
        WindowAbout2* large = existingInstance<WindowAbout2>();
        QVERIFY(large && large->isVisible());
        QTest::mouseClick(logo, Qt::LeftButton);
        QCOMPARE(about->findChildren<WindowAbout2*>(), QList<WindowAbout2*>{large});
        QTest::mouseClick(control(large, "ImageWell1"), Qt::LeftButton);
        deleteClosedWindows();
        QVERIFY(!existingInstance<WindowAbout2>());

        QTest::mouseClick(control<QPushButton>(about, "PushButtonClose"), Qt::LeftButton);
        deleteClosedWindows();
        QVERIFY(!existingInstance<WindowAbout>());
    }

    void noLabelOfAnyWindowClipsItsText() {
        App::instance()->start();
        sharedInstance<WindowProgess>()->Show();
        sharedInstance<WindowPreferences>()->Show();
        sharedInstance<VelmoraHelp>()->Show();
        openAbout();
        sharedInstance<WindowAbout2>()->Show();
        QStringList clipped;
        int labels = 0;
        for (QWidget* widget : QApplication::allWidgets()) {
            const auto* label = qobject_cast<QLabel*>(widget);
            if (!label || label->text().isEmpty() || !label->window()->isVisible()) continue;
            QVERIFY(QTest::qWaitForWindowExposed(label->window()));
            ++labels;
            if (!fits(label)) clipped << label->objectName();
        }
        QVERIFY2(labels > 30, qPrintable(QString::number(labels)));
        QVERIFY2(clipped.isEmpty(), qPrintable(clipped.join(", ")));
    }

    // Narrowing is for texts that need it: a text that fits keeps its letters as they are.
    void aFittingTextIsNotNarrowed() {
        QLabel label(QStringLiteral("Big file size"));
        label.resize(186, 16);
        narrowToFit(&label);
        QCOMPARE(label.font().stretch(), int(QFont::Unstretched));
    }
};

VELMORA_TEST_MAIN(AboutWindowsTest)
#include "tst_aboutwindows.moc"
