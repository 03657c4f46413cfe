#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/job.h"
#include "scene/chart_hit.h"
#include "scene/chart_scene.h"
#include "scene/item_maker.h"

namespace quillon {

/// What of the chart is the program's choice and no feature's.
struct SceneOptions {
    bool depthPicture = true;
    bool relief = true;  ///< in the depth picture
};

/// For each point of a path the record of a feature that it belongs to.
using RecordNumbers = std::shared_ptr<const std::vector<std::uint32_t>>;

/// Turns the features of a job into what the chart draws: one layer a kind. What is hidden isn't in the scene.
///
/// What is worked out from a feature's data (its path with all levels of detail, where its name stands) is kept under a
/// name for as long as the stamp of the data stays what it was, so that a change of style costs next to nothing. With
/// an `ItemMaker` long paths are made in the background: until one is ready the scene has the one before, or a sketch.
/// Then the maker says so, and the next `Build` has it.
class SceneBuilder {
public:
    explicit SceneBuilder(JobRecord& job, ItemMaker* background = nullptr) : record(job), maker(background) {}

    SceneOptions options;

    /// The features as they stand.
    ChartScene Build();

    /// Whether there was nothing to draw in the scene last built.
    bool IsEmpty() const { return recordOf.empty(); }

    /// The point of the job behind a hit in the scene last built; of a line between two points its nearer one. Of an
    /// area the file alone.
    JobPoint PointOf(const ChartHit& hit) const;
    /// What a background says about a hit in the scene last built; empty for nothing.
    std::string TextOf(const ChartHit& hit) const;
    /// The path through the points of a file in the scene last built; null if it isn't shown.
    PathPtr PathOf(const ChartScene& scene, KIND kind, int file) const;
    const JobRecord& Record() const { return record; }

    /// What of the scene last built shows a file: the box of its paths, without what is worked out from them. Empty if
    /// the file isn't in it.
    ChartBox BoxOf(const ChartScene& scene, KIND kind, int file) const;

    // For the functions of the kinds, while a scene is built. Names are unique within a layer.

    /// What `make` gives, made anew only when the stamp is another.
    template <class T>
    std::shared_ptr<const T> Keep(const std::string& name, std::uint64_t stamp,
                                  const std::function<std::shared_ptr<const T>()>& make) {
        return std::static_pointer_cast<const T>(KeepAny(name, stamp, make));
    }
    /// The path over some points, which are asked for only when the stamp is another. Its levels are made only if they
    /// are other points, and in the background where they are many.
    PathPtr KeepPath(const std::string& name, std::uint64_t stamp, const PathParts& parts,
                     const std::function<ChartPoints()>& make);
    /// What `make` gives, made in the background; null until then. It must own what it works with.
    template <class T>
    std::shared_ptr<const T> KeepLater(const std::string& name, std::uint64_t stamp,
                                       std::function<std::shared_ptr<const T>(const ItemMaker::Stop& stop)> make) {
        return std::static_pointer_cast<const T>(KeepAnyLater(name, stamp, std::move(make)));
    }
    /// An item that shows the file with that index, with so many points a record.
    void Add(int file, ChartItem item, int pointsPerRecord = 1);
    /// An item that shows one record of a file.
    void AddRecord(int file, int record, ChartItem item);
    /// What the colours of a picture mean.
    void SetLegend(ChartLegend legend);
    /// A path of which each point says what record it belongs to.
    void Add(int file, ChartPath path, RecordNumbers recordOf);
    /// An item that shows nothing that could be chosen.
    void AddBackground(ChartItem item) { Add(-1, std::move(item)); }
    /// One of those that says what lies at a place of it: a depth, an attribute. Empty for nothing.
    using HitText = std::function<std::string(const ChartHit& hit)>;
    void AddBackground(ChartItem item, HitText textOf);
    /// The same of a file without points to choose.
    void AddUnderlay(int file, ChartItem item, HitText textOf);

private:
    /// What of the job an item shows.
    struct Shown {
        int file;  ///< -1: nothing that could be chosen
        int pointsPerRecord;
        int record = -1;  ///< the only one that it shows; -1 for one after the other
        HitText textOf = {};
        RecordNumbers recordOf = {};  ///< in place of `pointsPerRecord`
        PathPtr path = {};            ///< that these count the points of
    };
    const Shown* ShownBy(const ChartHit& hit) const;
    void AddShown(ChartItem item, Shown shown);
    using Data = std::shared_ptr<const void>;
    struct Kept {
        std::uint64_t stamp = 0;  ///< of the data, or of those that are being made
        Data data;
        std::uint64_t ticket = 0;  ///< of the maker; 0: the data are what they are to be
    };
    using KeptByName = std::map<std::pair<std::uint64_t, std::string>, Kept>;

    /// The record of the nearer end of what was hit; -1 if it has none.
    static int RecordOf(const Shown& shown, const PathHit& hit);
    Kept& Find(const std::string& name);
    Data KeepAny(const std::string& name, std::uint64_t stamp, const std::function<Data()>& make);
    Data KeepAnyLater(const std::string& name, std::uint64_t stamp, ItemMaker::Make make);
    void AskFor(Kept& item, ItemMaker::Make make);
    void TakeReady();
    void DropUnused();

    JobRecord& record;
    ItemMaker* maker;
    ChartScene* building = nullptr;
    ChartLayer* layer = nullptr;
    KeptByName kept;                                       // of this scene
    KeptByName before;                                     // of the scene before, while this one is built
    std::map<std::uint64_t, std::vector<Shown>> recordOf;  // by layer, in the order of its items
};

/// A stamp for what hangs on data and on a number of their settings.
std::uint64_t MixedStamp(std::uint64_t stamp, double setting);

}  // namespace quillon
