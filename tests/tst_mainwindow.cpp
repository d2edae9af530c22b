#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include "mainwindow/catalogueview.h"
#include "mainwindow/mainmenubar.h"
#include "mainwindow/windowmain.h"
#include "platform/sharedwindow.h"
#include "preferences/windowpreferences.h"
#include "support/testenvironment.h"

namespace {
const QString kNoFolderMessage = QStringLiteral(
    "Oooops...\rIn order to create the page with the galley, you must first add the folder with "
    "the images you have carefully chosen.");

// Lets a test drop on the list without a drag of the window system.
class DroppableView : public CatalogueView {
public:
    using CatalogueView::dropEvent;
};
}  // namespace

class MainWindowTest : public QObject {
    Q_OBJECT
    QTemporaryDir pages;
    WindowMain* window = nullptr;
    ImageCatalogue* catalogue = nullptr;
    RecordingDialogs& dialogs = TestEnvironment::dialogs();
    MainMenuBar& menus = App::instance()->menuBar();

    template <class W = QWidget>
    W* control(const char* name) const {
        return window->findChild<W*>(name);
    }
    void fill(const QStringList& names) {
        for (const QString& name : names) {
            catalogue->AddRow(name);
            catalogue->setCell(catalogue->LastIndex(), 7, name + " caption");
        }
        window->updateTheList();
    }
    QStringList column(int cell) const {
        QStringList cells;
        for (int row = 0; row < catalogue->ListCount(); ++row) cells << catalogue->Cell(row, cell);
        return cells;
    }

private slots:
    void initTestCase() {
        App::instance()->start();
        window = App::instance()->windowMain();
        catalogue = &window->catalogue();
        control<QLineEdit>("galleryPath")->setText(pages.path() + "/");
    }
    void init() {
        catalogue->DeleteAllRows();
        catalogue->setRenameFlag("no");
        dialogs.clear();
        TestEnvironment::desktop().clear();
    }

    void theControlsStandWhereTheDesignPutsThem() {
        QCOMPARE(control("centralwidget")->size(), QSize(820, 680));
        QCOMPARE(window->minimumSize(), window->maximumSize());
        QVERIFY(!window->windowFlags().testFlag(Qt::WindowFullscreenButtonHint));
        QCOMPARE(control("ImageCanvas")->geometry(), QRect(245, 74, 360, 240));
        QCOMPARE(control("BevelButton2")->geometry(), QRect(743, -11, 53, 64));
        QWidget* caption = control("imgCaption");
        QCOMPARE(caption->mapTo(control("centralwidget"), QPoint()), QPoint(444, 593));
        QVERIFY(control("resizedWidth")->isVisibleTo(window));
        for (const char* hidden : {"wRect", "hRect", "TextFieldRenamed"})
            QVERIFY(!control(hidden)->isVisibleTo(window));
        const auto stack =
            control("centralwidget")->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        QCOMPARE(stack.first()->objectName(), QString("ImageCanvas"));
        QCOMPARE(stack.last()->objectName(), QString("info"));

        // The group box's large font stays with its caption.
        QCOMPARE(control("GroupBox1")->font().pixelSize(), 16);
        QCOMPARE(caption->font().pointSizeF(), QApplication::font(caption).pointSizeF());

        auto* list = control<CatalogueView>("Listbox1");
        QCOMPARE(list->columnWidth(2), 520);
        QCOMPARE(list->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(list->selectionModel(), catalogue->selectionModel());
    }

    void aNewGalleryStartsFromTheDefaults() {
        for (const char* name : {"bgColot", "txtColor", "capColor"}) {
            auto* popup = control<QComboBox>(name);
            QCOMPARE(popup->count(), 148);
            QCOMPARE(popup->itemText(55), QString("Grey"));
        }
        GallerySettings settings = window->gallerySettings();
        QCOMPARE(settings.galleryFileName, QString("index.html"));
        QCOMPARE(settings.galleryHTMLtitle, App::instance()->shortName + "'s photo gallery");
        QCOMPARE(settings.bgColor + settings.textColor + settings.captionColor,
                 QString("BlackWhiteWhite"));
        QVERIFY(settings.fullPageWidth);
        QVERIFY(!existingInstance<WindowPreferences>());

        control<QComboBox>("txtColor")->setCurrentText("Navy");
        control<QCheckBox>("CheckBoxFullScreen")->setChecked(false);
        control<QLineEdit>("galleryTitle")->setText("Dunes");
        settings = window->gallerySettings();
        QCOMPARE(settings.textColor, QString("Navy"));
        QCOMPARE(settings.galleryTitle, QString("Dunes"));
        QVERIFY(!settings.fullPageWidth);
        QCOMPARE(settings.galleryPath, pages.path() + "/");
    }

    void thePreferencesOpenAtStartOnlyWhenAsked() {
        App::instance()->openPrefs = "yes";
        WindowMain other;
        other.Event_Open();
        App::instance()->openPrefs.clear();
        QVERIFY(existingInstance<WindowPreferences>());
        QCOMPARE(existingInstance<WindowPreferences>()->parentWidget(), &other);
    }

    void menuItemsFollowTheRowsAndTheRenameFlag() {
        QCOMPARE(window->menuBar()->actions().size(), 2);
        QVERIFY(!menus.FileMenu->actions().contains(menus.Preferences));
        QVERIFY(window->actions().contains(menus.RestoreNames));
        QVERIFY(!menus.Save->isEnabled() && !menus.Rename->isEnabled());
        QVERIFY(!menus.RestoreNames->isEnabled());

        fill({"a"});
        catalogue->setListIndex(-1);
        QVERIFY(menus.Save->isEnabled() && menus.Rename->isEnabled());
        catalogue->setRenameFlag("yes");
        QVERIFY(menus.RestoreNames->isEnabled());
        QCOMPARE(control<QLineEdit>("TextFieldRenamed")->text(), QString("yes"));

        // The hidden item answers its shortcut.
        catalogue->setCell(0, 0, "renamed");
        catalogue->setCell(0, 1, "a.jpg");
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
        QTest::keyClick(window, Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(catalogue->Cell(0, 0), QString("a"));
        QVERIFY(!menus.RestoreNames->isEnabled());

        catalogue->DeleteAllRows();
        QVERIFY(!menus.Save->isEnabled());
        catalogue->setRenameFlag("yes");
        QVERIFY(menus.RestoreNames->isEnabled());
    }

    void theButtonWantsASelectionAndTheMenuAnyRow() {
        auto* button = control<QPushButton>("BevelButton1");
        button->click();
        menus.Save->trigger();  // disabled: nothing happens
        QCOMPARE(dialogs.beeps, 1);
        QCOMPARE(dialogs.messages, QStringList({kNoFolderMessage}));

        fill({"a", "b"});
        catalogue->setListIndex(-1);
        button->click();
        QCOMPARE(dialogs.messages.size(), 2);
        QVERIFY(TestEnvironment::desktop().launched.isEmpty());
        menus.Save->trigger();
        const QString page = pages.filePath("index.html");
        QCOMPARE(TestEnvironment::desktop().launched, QStringList({page}));

        catalogue->setListIndex(1);
        button->click();
        QCOMPARE(TestEnvironment::desktop().launched.size(), 2);
        QCOMPARE(dialogs.messages.size(), 2);
        QFile written(page);
        QVERIFY(written.open(QIODevice::ReadOnly));
        QVERIFY(written.readAll().contains("b caption"));
    }

    void theCaptionFieldEditsTheSelectedRowOnly() {
        fill({"a", "b", "c"});
        auto* caption = control<QLineEdit>("imgCaption");
        catalogue->setListIndex(0);
        caption->clear();
        QTest::keyClicks(caption, "Morning");
        catalogue->setListIndex(1);
        QCOMPARE(caption->text(), QString("b caption"));
        catalogue->setListIndex(0);
        QCOMPARE(caption->text(), QString("Morning"));

        catalogue->selectionModel()->select(
            catalogue->index(2, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QTest::keyClicks(caption, "!");
        QCOMPARE(column(7), QStringList({"Morning!", "b caption", "c caption"}));

        catalogue->setListIndex(-1);
        App::instance()->opf = "kept";
        caption->setText("nobody's");
        QCOMPARE(column(7), QStringList({"Morning!", "b caption", "c caption"}));
        QCOMPARE(App::instance()->opf, QString("kept"));
    }

    void clearingAsksFirstAndLeavesAnEmptyList() {
        auto* clear = control<QPushButton>("clearBtn");
        clear->click();
        QCOMPARE(dialogs.beeps, 1);
        QVERIFY(dialogs.questions.isEmpty());

        fill({"a", "b"});
        clear->click();
        QCOMPARE(catalogue->ListCount(), 2);
        QCOMPARE(dialogs.questions.first().text,
                 QString("Clear\n\nAre you sure to clear the image's list?"));
        QCOMPARE(dialogs.questions.first().buttons, 36);
        QCOMPARE(dialogs.questions.first().title, QString());

        catalogue->setRenameFlag("yes");
        dialogs.answers.enqueue(kAnswerYes);
        clear->click();
        QCOMPARE(catalogue->ListCount(), 0);
        QCOMPARE(control<QLabel>("imgCount")->text(), QString("Empty list"));
        QCOMPARE(control<QLabel>("info")->text(),
                 QString("To start, simply Drag and Drag  a folder of chosen images onto this "
                         "window.\nPlease take note: the images have to be already resized."));
        QVERIFY(App::instance()->opf.isEmpty());
        QCOMPARE(control<QLineEdit>("TextFieldRenamed")->text(), QString("no"));
    }

    void removingTakesOutTheSelectedRows() {
        auto* remove = control<QPushButton>("clearBtn1");
        remove->click();
        QCOMPARE(dialogs.beeps, 1);
        QVERIFY(dialogs.questions.isEmpty());

        fill({"r0", "r1", "r2", "r3", "r4", "r5"});
        catalogue->setListIndex(3);
        remove->click();
        QCOMPARE(dialogs.questions.last().text,
                 QString("Remove image/s\n\nAre you sure to remove from the list the selected "
                         "image?"));
        QCOMPARE(catalogue->ListCount(), 6);

        for (int row : {1, 4})
            catalogue->selectionModel()->select(
                catalogue->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
        dialogs.answers.enqueue(kAnswerYes);
        remove->click();
        QCOMPARE(dialogs.questions.last().text,
                 QString("Clear\n\nAre you sure to remove the 3 selected images from the list?"));
        QCOMPARE(column(0), QStringList({"r0", "r2", "r5"}));
        QCOMPARE(column(7), QStringList({"r0 caption", "r2 caption", "r5 caption"}));
        QCOMPARE(control<QLabel>("imgCount")->text(), QString("3 images"));
        QVERIFY(catalogue->ListIndex() >= 0);
        QVERIFY(App::instance()->opf.isEmpty());

        catalogue->selectionModel()->select(
            QItemSelection(catalogue->index(0, 0), catalogue->index(2, 0)),
            QItemSelectionModel::Select | QItemSelectionModel::Rows);
        dialogs.answers.enqueue(kAnswerYes);
        remove->click();
        QCOMPARE(catalogue->ListCount(), 0);
        QCOMPARE(control<QLabel>("imgCount")->text(), QString("0 images"));
    }

    void draggedRowsMoveWithTheirCaptions() {
        ImageCatalogue list;
        for (const char* name : {"a", "b", "c", "d"}) {
            list.AddRow(name);
            list.setCell(list.LastIndex(), 7, QString(name) + "!");
        }
        DroppableView view;
        view.setModel(&list);
        view.resize(200, 300);
        QScopedPointer<QMimeData> dragged(list.mimeData({list.index(0, 0), list.index(1, 0)}));
        const QRect third = view.visualRect(list.index(2, 0));
        QDropEvent drop(QPointF(third.center().x(), third.bottom() - 1), Qt::MoveAction,
                        dragged.get(), Qt::LeftButton, Qt::NoModifier);
        view.dropEvent(&drop);
        QVERIFY(!drop.isAccepted());  // nothing left for the view to remove
        QStringList order;
        for (int row = 0; row < list.ListCount(); ++row)
            order << list.Cell(row, 0) + list.Cell(row, 7);
        QCOMPARE(order, QStringList({"cc!", "aa!", "bb!", "dd!"}));
    }

    // Last: closing ends the program.
    void closingIsNeverRefused() {
        fill({"a"});
        QVERIFY(window->close());
        QVERIFY(dialogs.questions.isEmpty());
    }
};

VELMORA_TEST_MAIN(MainWindowTest)
#include "tst_mainwindow.moc"
