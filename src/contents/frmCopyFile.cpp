#include "contents/frmCopyFile.h"

#include <QCoreApplication>

frmCopyFile::frmCopyFile(Program& program, DiscCopy& copy, const QString& name)
    : Screen(program, u"frmCopyFile"_s, u"Чтение файла с диска"_s), copy(copy)
{
    lblFile->setText(name);
    prbFile->setTextVisible(false);
    prbFile->setMaximum(1000);
    cmdCancel->setup(u"cancel"_s, u"&Отмена"_s, u"Прервать чтение файла"_s);
    setLayout(column(lblFile, prbFile, row(stretch, cmdCancel)));
    setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    connect(cmdCancel, &QPushButton::clicked, this, &Form::reject);
}

void frmCopyFile::Form_Activate()
{
    Guarded("frmCopyFile, Form_Activate()"_L1, [&] {
        copying = true;
        try {
            while (copying && !copy.complete()) {
                prbFile->setValue(int(1000 * copy.copied() / copy.size()));
                QCoreApplication::processEvents();
                if (copying) copy.step();
            }
        } catch (const RuntimeError& error) {
            failure = error;
        }
        copying = false;
    });
    Unload();
}

bool frmCopyFile::Form_QueryUnload()
{
    if (!copying) return true;
    copying = false;
    return false;
}
