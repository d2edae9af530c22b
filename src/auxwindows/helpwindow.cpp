#include "auxwindows/helpwindow.h"

#include <QFile>

#include "auxwindows/ui_helpwindow.h"
#include "platform/designfonts.h"

static void loadHelpTextResources() {
    Q_INIT_RESOURCE(helptexts);
}

namespace {

// The window as designed; the controls follow its edges from there.
constexpr QSize kDesignSize(640, 486);
constexpr QPoint kTextAreaPosition(40, 58);

QString helpText(const QString& language) {
    QFile file(QStringLiteral(":/helptexts/") + language);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll());
}

}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : SheetWindow(parent), ui(new Ui::HelpWindow) {
    ui->setupUi(this);
    useDesignFontSizes(this);
    loadHelpTextResources();
    const QStringList languages = {"en", "it", "fr", "de", "es", "ja", "zh"};
    const QList<QPlainTextEdit*> areas = textAreas();
    for (int tab = 0; tab < areas.size(); ++tab) areas[tab]->setPlainText(helpText(languages[tab]));
    connect(ui->okButton, &QPushButton::clicked, this, &HelpWindow::cancel);
}

HelpWindow::~HelpWindow() = default;

void HelpWindow::showEvent(QShowEvent* event) {
    SheetWindow::showEvent(event);
    // The tab bar's height is the style's, so the areas are placed once the panel has laid out
    // its pages, to stand at their place in the window whatever the style.
    const QPoint onPage = ui->languageTabs->currentWidget()->mapFrom(this, kTextAreaPosition);
    for (QPlainTextEdit* area : textAreas()) area->move(onPage);
}

void HelpWindow::resizeEvent(QResizeEvent* event) {
    SheetWindow::resizeEvent(event);
    // The panel grows with the window; "OK" keeps its distance from the left, right and bottom
    // edges, so it widens; the text areas keep their size.
    const QSize growth = size() - kDesignSize;
    ui->languageTabs->setGeometry(20, 20, 600 + growth.width(), 414 + growth.height());
    ui->okButton->setGeometry(280, 446 + growth.height(), 80 + growth.width(), 20);
}

QList<QPlainTextEdit*> HelpWindow::textAreas() const {
    return {ui->englishText, ui->italianText,  ui->frenchText, ui->germanText,
            ui->spanishText, ui->japaneseText, ui->chineseText};
}

void HelpWindow::cancel() {
    close();
}
