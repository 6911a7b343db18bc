#pragma once

#include <QString>
#include <memory>

class QWidget;

/// Made-up windows that show every kind of control, for the eye and for what can be measured. Lists, trees and cards are
/// seen in the screens that have them.
std::unique_ptr<QWidget> formGallery();
std::unique_ptr<QWidget> popupGallery();
/// Every icon at 16, 24 and 48 pixels, enabled, disabled and on the accent.
std::unique_ptr<QWidget> iconGallery();

/// Leaves a picture in the folder named by VINORA_PICTURES; without it does nothing. `scale` is the device pixel ratio.
void savePicture(QWidget& window, const QString& name, qreal scale);
