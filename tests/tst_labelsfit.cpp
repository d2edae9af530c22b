#include <QLabel>
#include <QTest>

#include "auxwindows/velmorahelp.h"
#include "auxwindows/windowabout.h"
#include "auxwindows/windowabout2.h"
#include "auxwindows/windowprogess.h"
#include "mainwindow/windowmain.h"
#include "platform/narrowtofit.h"
#include "platform/sharedwindow.h"
#include "preferences/windowpreferences.h"
#include "support/testenvironment.h"

namespace {
// How `label` falls short of the room its text takes, as the label itself measures it; empty
// when the text fits.
QString shortfall(const QLabel* label) {
    const QSize needed = label->wordWrap()
                             ? QSize(label->width(), label->heightForWidth(label->width()))
                             : label->sizeHint();
    if (needed.width() <= label->width() && needed.height() <= label->height()) return {};
    return QStringLiteral("%1 needs %2x%3, has %4x%5")
        .arg(label->objectName())
        .arg(needed.width())
        .arg(needed.height())
        .arg(label->width())
        .arg(label->height());
}
}  // namespace

class LabelsFitTest : public QObject {
    Q_OBJECT

private slots:
    void noLabelOfAnyWindowClipsItsText() {
        App::instance()->start();
        sharedInstance<WindowProgess>()->Show();
        sharedInstance<WindowPreferences>()->Show();
        sharedInstance<VelmoraHelp>()->Show();
        sharedInstance<WindowAbout>()->Show();
        sharedInstance<WindowAbout2>()->Show();
        QStringList clipped;
        int labels = 0;
        for (QWidget* widget : QApplication::allWidgets()) {
            const auto* label = qobject_cast<QLabel*>(widget);
            if (!label || label->text().isEmpty() || !label->window()->isVisible()) continue;
            QVERIFY(QTest::qWaitForWindowExposed(label->window()));
            ++labels;
            if (QString missing = shortfall(label); !missing.isEmpty()) clipped << missing;
        }
        QVERIFY2(labels > 30, qPrintable(QString::number(labels)));
        QVERIFY2(clipped.isEmpty(), qPrintable(clipped.join(QStringLiteral("; "))));
    }

    // Narrowing is for texts that need it: a text that fits keeps its letters as they are.
    void aFittingTextIsNotNarrowed() {
        QLabel label(QStringLiteral("Big file size"));
        label.resize(186, 16);
        narrowToFit(&label);
        QCOMPARE(label.font().stretch(), int(QFont::Unstretched));
    }
};

VELMORA_TEST_MAIN(LabelsFitTest)
#include "tst_labelsfit.moc"
