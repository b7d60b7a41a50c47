// The program itself: the entry on a desktop that Qt draws.
#include "app/entry.h"
#include "desktop_qt/qt_desktop.h"
#include "file_transfer_curl/curl_file_transfer.h"
#include "main/host_functions.h"
#include "maps_shapelib/shapelib_reader.h"
#include "runs/run_supervisor.h"
#include "table_csv/csv_table_reader.h"

#include <QtWidgets/QApplication>

#include <iostream>

int main(int argc, char** argv) {
    if (const auto exit_code = supervise_if_asked(argc, argv))
        return *exit_code;
    const QApplication application(argc, argv);
    Curl_file_transfer file_transfer;
    Shapelib_reader polygons;
    Csv_table_reader tables;
    Program_services services;
    services.make_desktop = [] { return std::make_unique<Qt_desktop>(host_functions()); };
    services.file_transfer = &file_transfer;
    services.polygons = &polygons;
    services.tables = &tables;
    services.libraries = {std::string("Qt ") + qVersion() + " (" +
                              qPrintable(QGuiApplication::platformName()) + ')',
                          Curl_file_transfer::library_version(), Shapelib_reader::library_version()};
    return run_program({argv, argv + argc}, services, std::cerr);
}
