#include "preferences/preferenceswindow.h"

#include "platform/designfonts.h"
#include "platform/dialogs.h"
#include "platform/narrowtofit.h"
#include "platform/specialfolders.h"
#include "platform/text.h"
#include "preferences/preferences.h"
#include "preferences/ui_preferenceswindow.h"

namespace {

// What the members of the radio arrays stand for, by Index.
const QStringList kSavePaths = {"Desktop", "Documents", "Pictures"};
const QStringList kImageFormats = {"PNG", "JPEG"};
// The quality rows of the popup, from the best down.
constexpr int kQualityOfRow[] = {100, 80, 50, 25, 0};
constexpr int kQualityRows = 5;

QColor fillColor(const QFrame* rectangle) {
    return rectangle->palette().color(QPalette::Window);
}

void setFillColor(QFrame* rectangle, const QColor& colour) {
    QPalette palette = rectangle->palette();
    palette.setColor(QPalette::Window, colour);
    rectangle->setPalette(palette);
}

void setHeight(QWidget* control, int height) {
    control->resize(control->width(), height);
}

// Runs `handler` with the member's Index whenever a member of the array is selected.
template <class Handler>
void connectArray(const QList<QRadioButton*>& array, QObject* receiver, Handler handler) {
    for (int index = 0; index < array.size(); ++index)
        QObject::connect(array[index], &QRadioButton::toggled, receiver, [=](bool selected) {
            if (selected) handler(index);
        });
}

}  // namespace

PreferencesWindow::PreferencesWindow(Preferences& preferences, QWidget* parent)
    : SheetWindow(parent), preferences_(preferences), ui(new Ui::PreferencesWindow) {
    ui->setupUi(this);
    useDesignFontSizes(this);
    narrowToFit(ui->formatCaption);
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                   Qt::WindowMinMaxButtonsHint);
    savePathButtons = {ui->desktopButton, ui->documentsButton, ui->picturesButton};
    imageFormatButtons = {ui->pngButton, ui->jpegButton};
    frameButtons = {ui->noFrameButton, ui->frameButton};

    // Connected after the design is built, so that its values run no handler; from here on a
    // change by the program runs them as the user's would.
    connect(ui->cancelButton, &QPushButton::clicked, this, &PreferencesWindow::cancel);
    connect(ui->okButton, &QPushButton::clicked, this, &PreferencesWindow::acceptChanges);
    connectArray(savePathButtons, this, [this](int index) { showSavePath(index); });
    connectArray(imageFormatButtons, this, [this](int index) { enableQuality(index); });
    connect(ui->qualityBox, &QComboBox::currentIndexChanged, this,
            &PreferencesWindow::describeQuality);
    connect(ui->frameWidthSlider, &Slider::ValueChanged, this, &PreferencesWindow::showFrameWidth);
    connect(ui->frameColourButton, &QPushButton::clicked, this,
            &PreferencesWindow::chooseFrameColour);

    showPreferences();
}

PreferencesWindow::~PreferencesWindow() = default;

void PreferencesWindow::escapePressed() {
    ui->cancelButton->click();
}

void PreferencesWindow::showPreferences() {
    if (kSavePaths.contains(preferences_.savePath))
        savePathButtons[kSavePaths.indexOf(preferences_.savePath)]->setChecked(true);
    if (kImageFormats.contains(preferences_.imageFormat))
        imageFormatButtons[kImageFormats.indexOf(preferences_.imageFormat)]->setChecked(true);
    for (int row = 0; row < kQualityRows; ++row)
        if (kQualityOfRow[row] == preferences_.imageQuality) ui->qualityBox->setCurrentIndex(row);
    ui->openAtStartCheckBox->setChecked(preferences_.openAtStart);
    frameButtons[preferences_.frameWidth != 0 ? 1 : 0]->setChecked(true);
    setFillColor(ui->frameSample, preferences_.frameColour);
    setHeight(ui->frameSample, preferences_.frameWidth);
    ui->frameWidthSlider->setValue(preferences_.frameWidth);
}

void PreferencesWindow::cancel() {
    close();
}

void PreferencesWindow::acceptChanges() {
    for (int index = 0; index < savePathButtons.size(); ++index)
        if (savePathButtons[index]->isChecked()) {
            preferences_.savePath = kSavePaths[index];
            break;
        }
    for (int index = 0; index < imageFormatButtons.size(); ++index)
        if (imageFormatButtons[index]->isChecked()) {
            preferences_.imageFormat = kImageFormats[index];
            break;
        }
    // Recorded for either format, also while the popup is disabled.
    const int row = ui->qualityBox->currentIndex();
    if (row >= 0 && row < kQualityRows) preferences_.imageQuality = kQualityOfRow[row];
    preferences_.openAtStart = ui->openAtStartCheckBox->isChecked();
    preferences_.frameWidth = frameButtons[0]->isChecked() ? 0 : ui->frameWidthSlider->value();
    preferences_.frameColour = fillColor(ui->frameSample);
    emit preferences_.previewFrameChanged();
    close();
}

void PreferencesWindow::showSavePath(int Index) {
    const QString folder = Index == 1   ? SpecialFolder::Documents()
                           : Index == 0 ? SpecialFolder::Desktop()
                                        : SpecialFolder::Pictures();
    ui->savePathLabel->setText(folder + QStringLiteral("/"));
}

void PreferencesWindow::enableQuality(int Index) {
    // PNG is lossless: the quality means nothing to it.
    const bool lossy = Index != 0;
    ui->qualityBox->setEnabled(lossy);
    ui->qualityLabel->setVisible(lossy);
}

void PreferencesWindow::describeQuality() {
    static const QStringList descriptions = {
        "Big file size, best quality", "Big file size, good quality",
        "Medium file size, medium quality", "Small file size, low quality",
        "Smallest file size, very low quality"};
    const int row = ui->qualityBox->currentIndex();
    if (row >= 0 && row < descriptions.size()) {
        ui->qualityLabel->setText(descriptions[row]);
        narrowToFit(ui->qualityLabel);
    }
}

void PreferencesWindow::showFrameWidth() {
    const int width = ui->frameWidthSlider->value();
    setHeight(ui->frameSample, width);
    ui->frameWidthLabel->setText(QString::number(width) + QStringLiteral("px"));
}

void PreferencesWindow::chooseFrameColour() {
    // Always from white, whatever the rectangle shows; a cancelled picker changes nothing.
    QColor colour(255, 255, 255);
    if (platform::pickColour(colour, QStringLiteral("Select a Color")))
        setFillColor(ui->frameSample, colour);
}
