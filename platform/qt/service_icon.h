// The icon a service control shows on its form: all the form shows of it.
#pragma once

#include <QString>

class QPainter;
class QRect;

namespace corvex::qt {

/// The letters on a service control's icon: the capitals of its class name, at most three
/// ("FileDialogBox" gives "FDB").
QString serviceIconLetters(const QString& className);

/// Paints the icon of the service class className into rect: a raised tile with its letters.
void paintServiceIcon(QPainter& painter, const QRect& rect, const QString& className);

}  // namespace corvex::qt
