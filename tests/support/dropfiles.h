#pragma once

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

// Drags `urls` onto `target` and drops them there as a file manager does: with the names as plain
// text too.
inline void dropOn(QWidget* target, const QList<QUrl>& urls) {
    QMimeData dragged;
    dragged.setUrls(urls);
    dragged.setText(urls.first().toString());
    const auto actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter({5, 5}, actions, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    QDropEvent drop({5, 5}, actions, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &drop);
}
