#include "preferences/windowpreferences.h"

#include "platform/designfonts.h"
#include "platform/dialogs.h"
#include "platform/narrowtofit.h"
#include "platform/specialfolders.h"
#include "platform/text.h"
#include "preferences/preferences.h"
#include "preferences/ui_windowpreferences.h"

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

WindowPreferences::WindowPreferences(Preferences& preferences, QWidget* parent)
    : SheetWindow(parent), preferences_(preferences), ui(new Ui::WindowPreferences) {
    ui->setupUi(this);
    useDesignFontSizes(this);
    narrowToFit(ui->Label1);
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                   Qt::WindowMinMaxButtonsHint);
    savePathButton = {ui->savePathButton_0, ui->savePathButton_1, ui->savePathButton_2};
    saveImageFormat = {ui->saveImageFormat_0, ui->saveImageFormat_1};
    RadioButtonFrame = {ui->RadioButtonFrame_0, ui->RadioButtonFrame_1};

    // Connected after the design is built, so that its values run no handler; from here on a
    // change by the program runs them as the user's would.
    connect(ui->PushButton1, &QPushButton::clicked, this, &WindowPreferences::PushButton1_Action);
    connect(ui->PushButton2, &QPushButton::clicked, this, &WindowPreferences::PushButton2_Action);
    connectArray(savePathButton, this, [this](int index) { savePathButton_Action(index); });
    connectArray(saveImageFormat, this, [this](int index) { saveImageFormat_Action(index); });
    connect(ui->PopupMenuQuality, &QComboBox::currentIndexChanged, this,
            &WindowPreferences::PopupMenuQuality_Change);
    connect(ui->SliderFrameWidth, &Slider::ValueChanged, this,
            &WindowPreferences::SliderFrameWidth_ValueChanged);
    connect(ui->PushButtonColor, &QPushButton::clicked, this,
            &WindowPreferences::PushButtonColor_Action);

    Event_Open();
}

WindowPreferences::~WindowPreferences() = default;

void WindowPreferences::escapePressed() {
    ui->PushButton1->click();
}

void WindowPreferences::Event_Open() {
    if (kSavePaths.contains(preferences_.savePath))
        savePathButton[kSavePaths.indexOf(preferences_.savePath)]->setChecked(true);
    if (kImageFormats.contains(preferences_.imageFormat))
        saveImageFormat[kImageFormats.indexOf(preferences_.imageFormat)]->setChecked(true);
    for (int row = 0; row < kQualityRows; ++row)
        if (kQualityOfRow[row] == preferences_.imageQuality)
            ui->PopupMenuQuality->setCurrentIndex(row);
    ui->CheckBoxPrefs->setChecked(preferences_.openPrefs == QStringLiteral("yes"));
    RadioButtonFrame[preferences_.frameWidth != 0 ? 1 : 0]->setChecked(true);
    setFillColor(ui->RectangleFrame, preferences_.bordColor);
    setHeight(ui->RectangleFrame, preferences_.frameWidth);
    ui->SliderFrameWidth->setValue(preferences_.frameWidth);
}

void WindowPreferences::PushButton1_Action() {
    close();
}

void WindowPreferences::PushButton2_Action() {
    for (int index = 0; index < savePathButton.size(); ++index)
        if (savePathButton[index]->isChecked()) {
            preferences_.savePath = kSavePaths[index];
            break;
        }
    for (int index = 0; index < saveImageFormat.size(); ++index)
        if (saveImageFormat[index]->isChecked()) {
            preferences_.imageFormat = kImageFormats[index];
            break;
        }
    // Recorded for either format, also while the popup is disabled.
    const int row = ui->PopupMenuQuality->currentIndex();
    if (row >= 0 && row < kQualityRows) preferences_.imageQuality = kQualityOfRow[row];
    preferences_.openPrefs =
        ui->CheckBoxPrefs->isChecked() ? QStringLiteral("yes") : QStringLiteral("no");
    preferences_.frameWidth = RadioButtonFrame[0]->isChecked() ? 0 : ui->SliderFrameWidth->value();
    preferences_.bordColor = fillColor(ui->RectangleFrame);
    emit preferences_.previewFrameChanged();
    close();
}

void WindowPreferences::savePathButton_Action(int Index) {
    const QString folder = Index == 1   ? SpecialFolder::Documents()
                           : Index == 0 ? SpecialFolder::Desktop()
                                        : SpecialFolder::Pictures();
    ui->LabelPath->setText(folder + QStringLiteral("/"));
}

void WindowPreferences::saveImageFormat_Action(int Index) {
    // PNG is lossless: the quality means nothing to it.
    const bool lossy = Index != 0;
    ui->PopupMenuQuality->setEnabled(lossy);
    ui->LabelQuality->setVisible(lossy);
}

void WindowPreferences::PopupMenuQuality_Change() {
    static const QStringList descriptions = {
        "Big file size, best quality", "Big file size, good quality",
        "Medium file size, medium quality", "Small file size, low quality",
        "Smallest file size, very low quality"};
    const int row = ui->PopupMenuQuality->currentIndex();
    if (row >= 0 && row < descriptions.size()) {
        ui->LabelQuality->setText(descriptions[row]);
        narrowToFit(ui->LabelQuality);
    }
}

void WindowPreferences::SliderFrameWidth_ValueChanged() {
    const int width = ui->SliderFrameWidth->value();
    setHeight(ui->RectangleFrame, width);
    ui->LabelFrameWidth->setText(text::Str(width) + QStringLiteral("px"));
}

void WindowPreferences::PushButtonColor_Action() {
    // Always from white, whatever the rectangle shows; a cancelled picker changes nothing.
    QColor colour(255, 255, 255);
    if (platform::pickColour(colour, QStringLiteral("Select a Color")))
        setFillColor(ui->RectangleFrame, colour);
}
