#include "mainwindow/Application.h"

int main(int argc, char** argv) { return RunVinora(argc, argv); }
