// What assistive technology is to speak, though nothing on the screen has the focus for it.
#pragma once

#include <QString>
#include <QWidget>

namespace varno {

void AnnounceFrom(QWidget* window, const QString& text);

}  // namespace varno
