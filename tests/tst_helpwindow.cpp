#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "auxwindows/progresswheel.h"
#include "auxwindows/velmorahelp.h"
#include "platform/sharedwindow.h"
#include "support/testenvironment.h"

namespace {
QTabWidget* panel() {
    return existingInstance<VelmoraHelp>()->findChild<QTabWidget*>("TabPanel1");
}
QStringList linesOfTab(int tab) {
    return panel()->widget(tab)->findChild<QPlainTextEdit*>()->toPlainText().split('\n');
}
// Escape ends the window as its OK button does, never leaving it to come back as it was.
void close(bool withEscape) {
    auto* help = existingInstance<VelmoraHelp>();
    if (withEscape)
        QTest::keyClick(help, Qt::Key_Escape);
    else
        QTest::mouseClick(help->findChild<QPushButton*>("PushButton1"), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!existingInstance<VelmoraHelp>());
}
}  // namespace

// The help window, and the wheel of the progress window.
class HelpWindowTest : public QObject {
    Q_OBJECT
private slots:
    // Each language's tab holds its own text, whole and read-only.
    void eachTabHoldsItsOwnText() {
        sharedInstance<VelmoraHelp>()->Show();
        QStringList titles;
        for (int tab = 0; tab < panel()->count(); ++tab) {
            titles << panel()->tabText(tab);
            QVERIFY(panel()->widget(tab)->findChild<QPlainTextEdit*>()->isReadOnly());
            // English ends on its last line, the others with a line break.
            QCOMPARE(linesOfTab(tab).size(), tab == 0 ? 15 : 16);
        }
        QCOMPARE(titles, QStringList({"English", "Italiano", "Français", "Deutsch", "Español",
                                      "にほんご", "中文"}));
        const QList<std::tuple<int, int, QString>> lines = {
            {0, 12,
             "Click on \"Write the gallery page\" and the page with the HTML code will be "
             "generated and saved in the folder of the chosen images."},
            {2, 14, "Voilà, rien de plus facile !"},
            {3, 6,
             "2. Velmora öffnen und den Ordner, der die Bilder enthält, in das Fenster ziehen."},
            {4, 0, "¡Crear una galería de fotos para la web nunca ha sido tan fácil!"},
            {5, 7, "3. タイトル、サブタイトル（オプション）を挿入します。"},
            {6, 12,
             "点击 \"编写图库页面\"，就会生成带有HTML代码的页面，并保存在选定的图片文件夹中。"}};
        for (const auto& [tab, line, text] : lines) QCOMPARE(linesOfTab(tab)[line], text);
        close(false);
    }

    void aNewOpeningStartsOnEnglish() {
        VelmoraHelp* help = sharedInstance<VelmoraHelp>();
        help->Show();
        panel()->setCurrentIndex(3);
        sharedInstance<VelmoraHelp>()->Show();
        QCOMPARE(sharedInstance<VelmoraHelp>(), help);
        QCOMPARE(panel()->currentIndex(), 3);
        close(true);
        sharedInstance<VelmoraHelp>()->Show();
        QCOMPARE(panel()->currentIndex(), 0);
    }

    void resizingGrowsThePanelAndWidensOk() {
        VelmoraHelp* help = sharedInstance<VelmoraHelp>();
        help->Show();
        auto* text = help->findChild<QPlainTextEdit*>("TextArea4");
        QCOMPARE(QRect(text->mapTo(help, QPoint()), text->size()), QRect(40, 58, 560, 356));
        help->resize(740, 536);
        QCOMPARE(panel()->geometry(), QRect(20, 20, 700, 464));
        QCOMPARE(help->findChild<QPushButton*>("PushButton1")->geometry(),
                 QRect(280, 496, 180, 20));
        QCOMPARE(text->size(), QSize(560, 356));
        close(false);
    }

    // The walk of a folder holds the event loop: the wheel must turn from one repaint to the
    // next with no event served between them.
    void theProgressWheelTurnsBetweenRepaints() {
        ProgressWheel wheel;
        wheel.resize(16, 16);
        const QImage first = wheel.grab().toImage();
        const QRgb background = wheel.palette().color(QPalette::Window).rgb();
        int drawn = 0;
        for (int y = 0; y < first.height(); ++y)
            for (int x = 0; x < first.width(); ++x) drawn += first.pixel(x, y) != background;
        QVERIFY2(drawn > 20, qPrintable(QString::number(drawn)));
        QTest::qSleep(120);
        QVERIFY(wheel.grab().toImage() != first);
    }
};

VELMORA_TEST_MAIN(HelpWindowTest)
#include "tst_helpwindow.moc"
