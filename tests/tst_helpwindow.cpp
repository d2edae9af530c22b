#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

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
void closeWithOk() {
    QTest::mouseClick(existingInstance<VelmoraHelp>()->findChild<QPushButton*>("PushButton1"),
                      Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
}  // namespace

class HelpWindowTest : public QObject {
    Q_OBJECT
private slots:
    void eachTabHoldsItsOwnTextReadOnly() {
        sharedInstance<VelmoraHelp>()->Show();
        QStringList titles;
        for (int tab = 0; tab < panel()->count(); ++tab) {
            titles << panel()->tabText(tab);
            const auto areas = panel()->widget(tab)->findChildren<QPlainTextEdit*>();
            QCOMPARE(areas.size(), 1);
            QVERIFY(areas[0]->isReadOnly());
            QCOMPARE(
                QRect(areas[0]->mapTo(existingInstance<VelmoraHelp>(), QPoint()), areas[0]->size()),
                QRect(40, 58, 560, 356));
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
        closeWithOk();
        QVERIFY(!existingInstance<VelmoraHelp>());
    }

    void aNewOpeningStartsOnEnglish() {
        VelmoraHelp* help = sharedInstance<VelmoraHelp>();
        help->Show();
        panel()->setCurrentIndex(3);
        sharedInstance<VelmoraHelp>()->Show();
        QCOMPARE(sharedInstance<VelmoraHelp>(), help);
        QCOMPARE(panel()->currentIndex(), 3);
        closeWithOk();
        sharedInstance<VelmoraHelp>()->Show();
        QCOMPARE(panel()->currentIndex(), 0);
        // Escape ends the window as its close box does, never leaving it to come back as it was.
        QTest::keyClick(existingInstance<VelmoraHelp>(), Qt::Key_Escape);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!existingInstance<VelmoraHelp>());
    }

    void resizingGrowsThePanelAndWidensOk() {
        VelmoraHelp* help = sharedInstance<VelmoraHelp>();
        help->Show();
        help->resize(740, 536);
        QCOMPARE(panel()->geometry(), QRect(20, 20, 700, 464));
        QCOMPARE(help->findChild<QPushButton*>("PushButton1")->geometry(),
                 QRect(280, 496, 180, 20));
        QCOMPARE(help->findChild<QPlainTextEdit*>("TextArea4")->size(), QSize(560, 356));
        closeWithOk();
    }
};

VELMORA_TEST_MAIN(HelpWindowTest)
#include "tst_helpwindow.moc"
