// The gallery's push buttons: named after their text, so that tests and the
// demonstration find them by name.
#pragma once

#include <QBoxLayout>
#include <QObject>
#include <QPushButton>
#include <QString>

namespace corvex::gallery {

/// Adds a button reading text to row, named text, that runs action when clicked.
template <class Action>
QPushButton* addNamedButton(QBoxLayout& row, QWidget* owner, const QString& text, Action action) {
    auto* b = new QPushButton(text, owner);
    b->setObjectName(text);
    QObject::connect(b, &QPushButton::clicked, owner, action);
    row.addWidget(b);
    return b;
}

}  // namespace corvex::gallery
