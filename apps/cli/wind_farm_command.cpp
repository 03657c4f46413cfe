#include "wind_farm_command.h"

#include <algorithm>
#include <memory>
#include <ostream>
#include <string>

#include "features/wind_farm_import.h"
#include "features/wind_farm_store.h"
#include "platform/text.h"
#include "sheet.h"

namespace quillon {
namespace {

struct WindFarmOptions {
    std::string file;  ///< UTF-8
    std::string farm;  ///< UTF-8; empty for what the file says
    bool json = false;
};

void Import(CliContext& context, const WindFarmOptions& options) {
    FileSystem& files = context.Files(FILE_ACCESS::READ_WRITE);
    const WindFarmImport import = ReadWindFarmFile(files, TextFromUtf8(options.file), TextFromUtf8(options.farm));
    if (import.passedOver > 0) {
        context.err << options.file << ": " << import.passedOver
                    << " without a position in latitude and longitude, or of another geometry; the first is number "
                    << import.firstPassed << '\n';
    }
    if (!import.fault.empty()) return context.Fail(options.file, Utf8FromText(import.fault));
    std::string fault;
    if (!StoreWindFarms(files, import.turbines, import.farms, fault)) {
        return context.Fail(Utf8FromText(WindFarmDatabasePath(files)), "can't be written: " + fault);
    }
    const auto sites = std::count_if(import.farms.begin(), import.farms.end(),
                                     [](const WindFarmDef& farm) { return !farm.boundary.empty(); });
    context.out << options.file << ": " << import.turbines.size() << " turbines and " << sites << " sites of "
                << import.farms.size() << " wind farms\n";
}

std::ptrdiff_t CountTurbines(const CWindFarmList& list, const std::string& farm) {
    return std::count_if(list.turbines.begin(), list.turbines.end(),
                         [&](const TurbineDef& turbine) { return turbine.farm == farm; });
}

void PutFloat(Sheet& sheet, std::string_view key, float value) {
    sheet.Real(key, value == kUnknownFloat ? MISSING_VALUE : static_cast<double>(value), 2, "m");
}

void List(CliContext& context, const WindFarmOptions& options) {
    CWindFarmList list(context.Files());
    std::string fault;
    if (!ReadWindFarms(list, fault)) {
        return context.Fail(Utf8FromText(WindFarmDatabasePath(context.Files())), "can't be read: " + fault);
    }
    const std::unique_ptr<Sheet> sheet = options.json ? MakeJsonSheet(context.out) : MakeTextSheet(context.out);
    sheet->BeginTable("wind_farms", std::ssize(list.farms));
    for (const WindFarmDef& farm : list.farms) {
        sheet->BeginRow();
        sheet->Angle("longitude", farm.position.x);
        sheet->Angle("latitude", farm.position.y);
        sheet->Int("turbines", CountTurbines(list, farm.name));
        sheet->Int("rings", std::ssize(farm.boundary));
        sheet->Text("name", farm.name);
        sheet->EndRow();
    }
    sheet->EndTable();
    sheet->BeginTable("turbines", std::ssize(list.turbines));
    for (const TurbineDef& turbine : list.turbines) {
        sheet->BeginRow();
        sheet->Angle("longitude", turbine.longitude);
        sheet->Angle("latitude", turbine.latitude);
        PutFloat(*sheet, "max_height", turbine.maxHeight);
        PutFloat(*sheet, "blade_radius", turbine.bladeRadius);
        PutFloat(*sheet, "structure_height", turbine.structureHeight);
        sheet->Text("farm", turbine.farm);
        sheet->Text("id", turbine.id);
        sheet->EndRow();
    }
    sheet->EndTable();
    sheet->Finish();
}

}  // namespace

void AddWindFarmCommands(CLI::App& app, CliContext& context) {
    CLI::App& command = *app.add_subcommand("windfarm", "The database of wind farms under the job");
    command.require_subcommand(1);
    command.footer(
        "Positions are degrees on WGS 84. A CSV file has a header; points of a GeoJSON or shape file are turbines, "
        "polygons\nsites. A turbine is put in the place of the one of its farm and id.\n\n"
        "Examples:\n"
        "  quillon windfarm import north.csv --farm \"North Bank\"\n"
        "  quillon windfarm import sites.geojson\n"
        "  quillon windfarm list --json");
    const auto options = std::make_shared<WindFarmOptions>();
    CLI::App& import = *command.add_subcommand("import", "Put the turbines and sites of a file into the database");
    import.add_option("FILE", options->file, "A CSV, GeoJSON or shape file")->required()->type_name("");
    import.add_option("--farm", options->farm, "The farm of turbines that name none; by default the file's name")
        ->type_name("NAME");
    import.callback([&context, options] { Import(context, *options);
});
CLI::App& list = *command.add_subcommand("list", "What the database holds");
list.add_flag("--json", options->json, "As JSON, positions in radians");
list.callback([&context, options] { List(context, *options); });
}  // namespace quillon

}  // namespace quillon
