#include <QEnterEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include "auxwindows/aboutwindow.h"
#include "auxwindows/helpwindow.h"
#include "auxwindows/logowindow.h"
#include "auxwindows/owner.h"
#include "auxwindows/progresswheel.h"
#include "auxwindows/progresswindow.h"
#include "platform/narrowtofit.h"
#include "platform/readablecolour.h"
#include "platform/sharedwindow.h"
#include "preferences/preferenceswindow.h"
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
AboutWindow* openAbout() {
    App::instance()->showAbout();
    return existingInstance<AboutWindow>();
}
QTabWidget* helpPanel() {
    return existingInstance<HelpWindow>()->findChild<QTabWidget*>("languageTabs");
}
}  // namespace

// The windows of their own: About and its large logo, help, and the progress window's wheel.
class AboutWindowsTest : public QObject {
    Q_OBJECT
    const QPalette light = QApplication::palette();

private slots:
    void init() { TestEnvironment::desktop().clear(); }
    void cleanup() {
        if (AboutWindow* about = existingInstance<AboutWindow>()) about->close();
        if (HelpWindow* help = existingInstance<HelpWindow>()) help->close();
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
        auto* link = openAbout()->findChild<QLabel*>("siteLink");
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
        AboutWindow* about = openAbout();
        auto* logo = about->findChild<QWidget*>("logo");
        hover(logo, true);
        QCOMPARE(logo->cursor().shape(), Qt::BitmapCursor);  // the magnifier
        hover(logo, false);
        QCOMPARE(logo->cursor().shape(), Qt::ArrowCursor);
        QTest::mouseClick(logo, Qt::LeftButton);
        QTest::mouseClick(logo, Qt::LeftButton);
        LogoWindow* large = existingInstance<LogoWindow>();
        QVERIFY(large && large->isVisible());
        QCOMPARE(about->findChildren<LogoWindow*>(), QList<LogoWindow*>{large});
        QTest::mouseClick(large->findChild<QWidget*>("logo"), Qt::LeftButton);
        deleteClosedWindows();
        QVERIFY(!existingInstance<LogoWindow>());

        // Out of the browser's way, and back as it was at the next opening.
        bool visibleAtBrowser = true;
        TestEnvironment::desktop().onShowURL = [&](const QString&) {
            visibleAtBrowser = about->isVisible();
        };
        QTest::mouseClick(about->findChild<QPushButton*>("donateButton"), Qt::LeftButton);
        QCOMPARE(TestEnvironment::desktop().urls,
                 QStringList{"http://" + owner::donationHost + "/paypal.php?app=Velmora"});
        QVERIFY(!visibleAtBrowser);
        deleteClosedWindows();
        QCOMPARE(openAbout(), about);
        QVERIFY(about->isVisible());
        QTest::mouseClick(about->findChild<QPushButton*>("closeButton"), Qt::LeftButton);
        deleteClosedWindows();
        QVERIFY(!existingInstance<AboutWindow>());
    }

    // Each language's tab holds its own text, whole (up to its last words) and read-only.
    void eachHelpTabHoldsItsOwnText() {
        sharedInstance<HelpWindow>()->showAsSheet();
        QStringList tabs;
        for (int tab = 0; tab < helpPanel()->count(); ++tab) {
            const auto* text = helpPanel()->widget(tab)->findChild<QPlainTextEdit*>();
            QVERIFY(text->isReadOnly());
            const QStringList lines = text->toPlainText().trimmed().split('\n');
            tabs << QString("%1 %2: %3")
                        .arg(helpPanel()->tabText(tab))
                        .arg(lines.size())
                        .arg(lines.last());
        }
        QCOMPARE(tabs, QStringList({"English 15: That's it, nothing could be simpler!",
                                    "Italiano 15: Ecco fatto, niente di più semplice!",
                                    "Français 15: Voilà, rien de plus facile !",
                                    "Deutsch 15: Das war's, nichts könnte einfacher sein!",
                                    "Español 15: ¡Eso es, nada más fácil!",
                                    "にほんご 15: これ以上簡単なことはない！",
                                    "中文 15: 就是这样，没有比这更容易的了!"}));
    }

    // An opening while the window is up brings it forward as it is; OK and Escape end it, and
    // the next opening starts on English.
    void aNewHelpOpeningStartsOnEnglish() {
        for (const bool escape : {false, true}) {
            sharedInstance<HelpWindow>()->showAsSheet();
            helpPanel()->setCurrentIndex(3);
            sharedInstance<HelpWindow>()->showAsSheet();
            QCOMPARE(helpPanel()->currentIndex(), 3);
            HelpWindow* help = existingInstance<HelpWindow>();
            if (escape)
                QTest::keyClick(help, Qt::Key_Escape);
            else
                QTest::mouseClick(help->findChild<QPushButton*>("okButton"), Qt::LeftButton);
            deleteClosedWindows();
            QVERIFY(!existingInstance<HelpWindow>());
        }
        sharedInstance<HelpWindow>()->showAsSheet();
        QCOMPARE(helpPanel()->currentIndex(), 0);
    }

    void resizingHelpGrowsThePanelAndWidensOk() {
        HelpWindow* help = sharedInstance<HelpWindow>();
        help->showAsSheet();
        auto* text = help->findChild<QPlainTextEdit*>("germanText");
        help->resize(740, 536);
        QCOMPARE(helpPanel()->geometry(), QRect(20, 20, 700, 464));
        QCOMPARE(help->findChild<QPushButton*>("okButton")->geometry(), QRect(280, 496, 180, 20));
        QCOMPARE(QRect(text->mapTo(help, QPoint()), text->size()), QRect(40, 58, 560, 356));
    }

    // The walk of a folder holds the event loop: the wheel must turn from one repaint to the
    // next with no event served between them.
    void theProgressWheelTurnsBetweenRepaints() {
        ProgressWheel wheel;
        wheel.resize(16, 16);
        const QImage first = wheel.grab().toImage();
        QTest::qSleep(120);
        QVERIFY(wheel.grab().toImage() != first);
    }

    // Every label of every window; and narrowing is for the texts that need it: a text that fits
    // keeps its letters as they are.
    void noLabelOfAnyWindowClipsItsText() {
        QLabel fitting(QStringLiteral("Big file size"));
        fitting.resize(186, 16);
        narrowToFit(&fitting);
        QCOMPARE(fitting.font().stretch(), int(QFont::Unstretched));

        App::instance()->start();
        sharedInstance<ProgressWindow>()->showForWalk();
        sharedInstance<PreferencesWindow>(App::instance()->preferences())->showAsSheet();
        sharedInstance<HelpWindow>()->showAsSheet();
        openAbout();
        sharedInstance<LogoWindow>()->showOverAbout();
        QStringList clipped;
        int labels = 0;
        for (QWidget* widget : QApplication::allWidgets()) {
            const auto* label = qobject_cast<QLabel*>(widget);
            if (!label || label->text().isEmpty() || !label->window()->isVisible()) continue;
            QVERIFY(QTest::qWaitForWindowExposed(label->window()));
            ++labels;
            // Whether the text fits its box, as the label itself measures the room it takes.
            const QSize needed = label->wordWrap() ? QSize(0, label->heightForWidth(label->width()))
                                                   : label->sizeHint();
            if (needed.boundedTo(label->size()) != needed) clipped << label->objectName();
        }
        QVERIFY2(labels > 30, qPrintable(QString::number(labels)));
        QVERIFY2(clipped.isEmpty(), qPrintable(clipped.join(", ")));
    }

    // A message shows a file's name as it is, markup and all, and wraps a long one in its box.
    void aMessageShowsANameAsItIsAndWrapsIt() {
        platform::installDialogs(nullptr);
        QMessageBox* shown = nullptr;
        QTimer::singleShot(0, [&] {
            shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(shown && shown->textFormat() == Qt::PlainText && shown->width() < 800);
            shown->accept();
        });
        platform::tell("<font color=red size=7>Pay.html" + QString(300, 'x') +
                       "\rFile name too long");
        platform::installDialogs(&TestEnvironment::dialogs());
        QVERIFY(shown);
    }
};

VELMORA_TEST_MAIN(AboutWindowsTest)
#include "tst_aboutwindows.moc"
