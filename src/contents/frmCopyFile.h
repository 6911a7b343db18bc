#pragma once

#include "contents/DiscFile.h"
#include "contents/ElidedLabel.h"
#include "frame/Screen.h"
#include "ui/ImageButton.h"

#include <QProgressBar>
#include <optional>

/// Finishes a copy of a file that takes its time, and goes when that is done. Closing it gives the copy up.
class frmCopyFile : public Screen {
public:
    frmCopyFile(Program& program, DiscCopy& copy, const QString& name);

    /// What stopped the copy, other than the user.
    const std::optional<RuntimeError>& error() const { return failure; }

    ElidedLabel* lblFile = named("lblFile");
    QProgressBar* prbFile = named("prbFile");
    ImageButton* cmdCancel = named("cmdCancel");

protected:
    void Form_Activate() override;
    bool Form_QueryUnload() override;

private:
    DiscCopy& copy;
    std::optional<RuntimeError> failure;
    bool copying = false;
};
