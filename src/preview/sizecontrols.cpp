#include "preview/sizecontrols.h"

SizeControls::SizeControls(const Controls& controls, QObject* parent)
    : QObject(parent), controls_(controls) {}
