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
#include "platform/narrowtofit.h"
#include "platform/readablecolour.h"
#include "platform/sharedwindow.h"
#include "preferences/windowpreferences.h"
#include "support/testenvironment.h"

namespace {
// The pointer moving onto `widget`, or off it.
void hover(QWidget* widget, bool onto) {
    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(widget, onto ? &enter : &leave);
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
        auto* link = openAbout()->findChild<QLabel*>("Label4");
        // The design's colours on a light window; on a dark one, the same hues, readable.
        const auto shows = [&](const QColor& design) {
            const QColor shown = link->palette().color(QPalette::WindowText);
            if (window == light.color(QPalette::Window)) return shown == design;
            return contrastRatio(shown, window) >= 4.5 && shown.hue() == design.hue();
        };
        QVERIFY(shows(Qt::black));
        for (const bool inside : {true, false}) {
            hover(link, inside);
            QVERIFY(shows(inside ? QColor(255, 0, 0) : QColor(0, 0, 255)));
            QCOMPARE(link->cursor().shape(), inside ? Qt::PointingHandCursor : Qt::ArrowCursor);
        }
        QTest::mouseClick(link, Qt::LeftButton);
        QCOMPARE(TestEnvironment::desktop().urls, QStringList{link->text()});
    }

    void theLogoShowsOneLargeWindowAndDonatingHidesTheWindow() {
        WindowAbout* about = openAbout();
        auto* logo = about->findChild<QWidget*>("ImageWell1");
        hover(logo, true);
        const QCursor magnifier = logo->cursor();
        QCOMPARE(magnifier.shape(), Qt::BitmapCursor);
        QVERIFY(QRect(QPoint(), magnifier.pixmap().deviceIndependentSize().toSize())
                    .contains(magnifier.hotSpot()));
        hover(logo, false);
        QCOMPARE(logo->cursor().shape(), Qt::ArrowCursor);
        QTest::mouseClick(logo, Qt::LeftButton);
        QTest::mouseClick(logo, Qt::LeftButton);
        WindowAbout2* large = existingInstance<WindowAbout2>();
        QVERIFY(large && large->isVisible());
        QCOMPARE(about->findChildren<WindowAbout2*>(), QList<WindowAbout2*>{large});
        QTest::mouseClick(large->findChild<QWidget*>("ImageWell1"), Qt::LeftButton);
        deleteClosedWindows();
        QVERIFY(!existingInstance<WindowAbout2>());

        // Out of the browser's way, and back as it was at the next opening.
        bool visibleAtBrowser = true;
        TestEnvironment::desktop().onShowURL = [&](const QString&) {
            visibleAtBrowser = about->isVisible();
        };
        QTest::mouseClick(about->findChild<QPushButton*>("BevelButton1"), Qt::LeftButton);
        QCOMPARE(TestEnvironment::desktop().urls,
                 QStringList{"http://" + owner::donationHost + "/paypal.php?app=Velmora"});
        QVERIFY(!visibleAtBrowser);
        deleteClosedWindows();
        QCOMPARE(openAbout(), about);
        QVERIFY(about->isVisible());
        QTest::mouseClick(about->findChild<QPushButton*>("PushButtonClose"), Qt::LeftButton);
        deleteClosedWindows();
        QVERIFY(!existingInstance<WindowAbout>());
    }

    // Every label of every window; and narrowing is for the texts that need it: a text that fits
    // keeps its letters as they are.
    void noLabelOfAnyWindowClipsItsText() {
        QLabel fitting(QStringLiteral("Big file size"));
        fitting.resize(186, 16);
        narrowToFit(&fitting);
        QCOMPARE(fitting.font().stretch(), int(QFont::Unstretched));

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
};

VELMORA_TEST_MAIN(AboutWindowsTest)
#include "tst_aboutwindows.moc"
