#include "contents/frmCopyFile.h"

frmCopyFile::frmCopyFile(Program& program, DiscCopy& copy, const QString& name)
    : LongWork(program, u"frmCopyFile"_s, u"Чтение файла с диска"_s), copy(copy)
{
    lblFile->setText(name);
    prbFile->setTextVisible(false);
    prbFile->setMaximum(1000);
    cmdCancel->setup(u"cancel"_s, u"&Отмена"_s, u"Прервать чтение файла"_s);
    setLayout(column(lblFile, prbFile, row(stretch, cmdCancel)));
    setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    connect(cmdCancel, &QPushButton::clicked, this, &Form::reject);
}

void frmCopyFile::Work()
{
    Guarded("frmCopyFile, Work()"_L1, [&] {
        try {
            while (!copy.complete()) {
                prbFile->setValue(int(1000 * copy.copied() / copy.size()));
                if (!turn()) return;
                copy.step();
            }
        } catch (const RuntimeError& error) {
            failure = error;
        }
    });
}
