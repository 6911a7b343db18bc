#pragma once

#include "contents/DiscFile.h"
#include "frame/LongWork.h"
#include "ui/ElidedLabel.h"
#include "ui/ImageButton.h"

#include <QProgressBar>
#include <optional>

/// Finishes a copy of a file that takes its time. Closing it gives the copy up.
class frmCopyFile : public LongWork {
public:
    frmCopyFile(Program& program, DiscCopy& copy, const QString& name);

    /// What stopped the copy, other than the user.
    const std::optional<RuntimeError>& error() const { return failure; }

    ElidedLabel* lblFile = named("lblFile");
    QProgressBar* prbFile = named("prbFile");
    ImageButton* cmdCancel = named("cmdCancel");

protected:
    void Work() override;

private:
    DiscCopy& copy;
    std::optional<RuntimeError> failure;
};
