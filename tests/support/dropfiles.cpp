#include "support/dropfiles.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

void dropOn(QWidget* target, const QList<QUrl>& urls) {
    QMimeData dragged;
    dragged.setUrls(urls);
    dragged.setText(urls.first().toString());
    const QPoint at(5, 5);
    QDragEnterEvent enter(at, Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton,
                          Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    QDropEvent drop(at, Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &drop);
}
