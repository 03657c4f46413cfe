#include "feature_loading.h"

namespace quillon {
namespace {

void Override(double& setting, double given) {
    if (given == given) setting = given;
}

}  // namespace

bool Load(CBoundary& boundary, const LoadOptions& options) {
    return boundary.Read(options.Path());
}

bool Load(CGridWaypoint& waypoints, const LoadOptions& options) {
    waypoints.SetPath(options.Path());
    waypoints.LoadSettings();
    if (options.order) waypoints.dataOrder = *options.order;
    return waypoints.ReadData(options.Path());
}

bool Load(CPipeline& pipeline, const LoadOptions& options) {
    pipeline.SetPath(options.Path());
    pipeline.ReadSettings();
    if (options.order) pipeline.dataOrder = *options.order;
    Override(pipeline.portCorridor, options.port);
    Override(pipeline.starboardCorridor, options.starboard);
    Override(pipeline.startKp, options.startKp);
    Override(pipeline.kpInterval, options.interval);
    if (options.decreasing) pipeline.increasingKps = false;
    if (options.labelKps) pipeline.labelKps = true;
    return pipeline.LoadData(options.Path());
}

bool Load(CRoute& route, const LoadOptions& options) {
    options.order ? route.Read(options.Path(), *options.order) : route.Read(options.Path());
    Override(route.portWidth, options.port);
    Override(route.starboardWidth, options.starboard);
    route.ComputeCorridor();
    return !route.IsEmpty();
}

bool Load(CSailLine& lines, const LoadOptions& options) {
    return options.order ? lines.Read(options.Path(), *options.order) : lines.Read(options.Path());
}

bool Load(CRPL& rpl, const LoadOptions& options) {
    rpl.SetPath(options.Path());
    rpl.ReadSettings();
    Override(rpl.portCorridor, options.port);
    Override(rpl.starboardCorridor, options.starboard);
    return rpl.LoadData(options.Path()) && !rpl.IsEmpty();
}

}  // namespace quillon
