// The main of every benchmark executable: runs the benchmarks as usual, then sets each
// "<Case>/corvex" against its "<Case>/qt" so that the comparison is read off directly.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

// Reports to the console as the library would, and keeps the real time per iteration of
// every run of a benchmark whose name has a "corvex" or "qt" part.
class RatioReporter : public benchmark::BenchmarkReporter {
public:
    RatioReporter()
        : console_(isatty(STDOUT_FILENO) ? benchmark::ConsoleReporter::OO_ColorTabular
                                         : benchmark::ConsoleReporter::OO_Tabular) {}

    bool ReportContext(const Context& context) override { return console_.ReportContext(context); }

    void ReportRuns(const std::vector<Run>& runs) override {
        console_.ReportRuns(runs);
        for (const Run& run : runs) {
            // Aggregates (mean, median, ...) of repetitions would count the same runs twice.
            if (run.run_type != Run::RT_Iteration || run.error_occurred || run.iterations <= 0) {
                continue;
            }
            auto [caseName, side] = splitName(run.run_name.str());
            if (side.empty()) continue;
            if (!cases_.count(caseName)) order_.push_back(caseName);
            Times& t = cases_[caseName];
            const double perIteration =
                run.real_accumulated_time / static_cast<double>(run.iterations);
            (side == "corvex" ? t.corvex : t.qt).add(perIteration);
        }
    }

    void Finalize() override { console_.Finalize(); }

    // One line per case that ran on both sides.
    void printRatios() const {
        for (const std::string& name : order_) {
            const Times& t = cases_.at(name);
            if (t.corvex.count == 0 || t.qt.count == 0 || t.qt.mean() <= 0) continue;
            std::printf("ratio %s: corvex/qt = %.3g\n", name.c_str(),
                        t.corvex.mean() / t.qt.mean());
        }
        std::fflush(stdout);
    }

    // One line per side of a case run at several sizes: how much longer the largest size
    // took than the smallest ("growth Fill/corvex: 1000 -> 10000 = 9.7x").
    void printGrowth() const {
        std::map<std::string, std::map<long long, double>> bySize;
        std::vector<std::string> bases;
        for (const std::string& name : order_) {
            const std::size_t slash = name.rfind('/');
            if (slash == std::string::npos) continue;
            const std::string last = name.substr(slash + 1);
            if (last.empty() || last.find_first_not_of("0123456789") != std::string::npos) continue;
            const long long size = std::stoll(last);
            const Times& t = cases_.at(name);
            const std::pair<const char*, const Mean*> sides[] = {{"corvex", &t.corvex},
                                                                 {"qt", &t.qt}};
            for (const auto& [side, mean] : sides) {
                if (mean->count == 0) continue;
                const std::string base = name.substr(0, slash) + "/" + side;
                if (!bySize.count(base)) bases.push_back(base);
                bySize[base][size] = mean->mean();
            }
        }
        for (const std::string& base : bases) {
            const auto& sizes = bySize.at(base);
            if (sizes.size() < 2 || sizes.begin()->second <= 0) continue;
            std::printf("growth %s: %lld -> %lld = %.3gx\n", base.c_str(), sizes.begin()->first,
                        sizes.rbegin()->first, sizes.rbegin()->second / sizes.begin()->second);
        }
        std::fflush(stdout);
    }

private:
    struct Mean {
        double sum = 0;
        int count = 0;
        void add(double v) {
            sum += v;
            ++count;
        }
        double mean() const { return count ? sum / count : 0; }
    };
    struct Times {
        Mean corvex;
        Mean qt;
    };

    // "Format/corvex/real_time" -> {"Format/real_time", "corvex"}; no side when the name
    // has neither part.
    static std::pair<std::string, std::string> splitName(const std::string& full) {
        std::vector<std::string> parts;
        std::stringstream in(full);
        for (std::string part; std::getline(in, part, '/');) parts.push_back(part);
        std::string caseName;
        std::string side;
        for (const std::string& part : parts) {
            if (side.empty() && (part == "corvex" || part == "qt")) {
                side = part;
                continue;
            }
            if (!caseName.empty()) caseName += '/';
            caseName += part;
        }
        return {caseName, side};
    }

    benchmark::ConsoleReporter console_;
    std::map<std::string, Times> cases_;
    std::vector<std::string> order_;
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios();
    reporter.printGrowth();
    benchmark::Shutdown();
    return 0;
}
