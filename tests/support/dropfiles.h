#pragma once

#include <QList>
#include <QUrl>

class QWidget;

// Drags `urls` onto `target` and drops them there as a file manager does: with the names as plain
// text too.
void dropOn(QWidget* target, const QList<QUrl>& urls);
