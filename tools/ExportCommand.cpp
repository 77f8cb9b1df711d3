#include "Changes.h"
#include "CommandLine.h"
#include "Items.h"
#include "OutputFolder.h"
#include "Progress.h"
#include "References.h"
#include "ReportFormats.h"
#include "Text.h"

#include <Parameters/Diagnostics.h>

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <numeric>
#include <stdexcept>
#include <utility>
#include <vector>

namespace Tool {

namespace {

constexpr std::string_view notRepresentable = "not-representable";
constexpr std::string_view leftBehind = "left-behind";
constexpr std::string_view loss = "loss";

const std::vector<ReportRule>& exportRules() {
    static const std::vector<ReportRule> rules = {
        {notRepresentable, Level::Error, "A document says what the data model cannot."},
        {leftBehind, Level::Blocked, "A document needs one that cannot be represented."},
        {loss, Level::Warning, "A rewritten document no longer says all that it did."}};
    return rules;
}

struct ExportOptions {
    Sources sources;
    std::string version;
    std::string folder;
    std::string lineFile;
    std::string format = "text";
    bool isFlat = false;
    bool isClosed = false;
    bool isQuiet = false;
    bool overwrite = false;
};

/// A catalog as another data model reads it.
class Export {
public:
    Export(const Catalog& catalog, const ExportOptions& options)
        : catalog_(catalog), options_(options), version_(versionOf(options.version)) {}

    void run() {
        convertAll();
        const Catalog readBack = loadBack();
        findLeftBehind(readBack);
        OutputFolder output(options_.lineFile.empty() ? options_.folder : options_.lineFile, options_.overwrite);
        for (const std::size_t position : order()) {
            addTo(output, position);
        }
        findLosses(readBack);
        output.write();
        checkWritten(output);
        print(output);
    }

    [[nodiscard]] Status status() const { return refused_ == 0 ? Status::Success : Status::Errors; }

private:
    [[nodiscard]] const Document& documentAt(std::size_t position) const { return catalog_.documents[position]; }
    [[nodiscard]] bool isRefused(std::size_t position) const { return texts_[position].empty(); }

    void convertAll() {
        Progress progress("Converting", catalog_.documents.size());
        for (const Document& document : catalog_.documents) {
            progress.advance();
            try {
                texts_.push_back(catalog_.engine.getSchemaInCompatibleFormat(version_, document.typeId));
                rewritten_ += texts_.back() == document.text ? 0 : 1;
            } catch (const Parameters::ValidationException&) {
                texts_.emplace_back();
                ++refused_;
                add(notRepresentable, document, refusalOf(document.typeId));
            }
        }
    }

    [[nodiscard]] std::string refusalOf(const std::string& typeId) const {
        std::vector<std::string_view> possible;
        for (const char* version : versionTexts) {
            if (reasonAgainst(version, typeId).empty()) {
                possible.emplace_back(version);
            }
        }
        return fmt::format("Data model {} cannot represent it: {} It can be written for {}.", options_.version,
                           reasonAgainst(options_.version, typeId), fmt::join(possible, " and "));
    }

    [[nodiscard]] std::string reasonAgainst(const std::string& version, const std::string& typeId) const {
        return Parameters::reasonNotRepresentable(catalog_.engine, versionOf(version), typeId);
    }

    /// What the texts define, with the documents as they are in place of those that have none.
    [[nodiscard]] Catalog loadBack() const {
        DocumentFiles files;
        for (std::size_t i = 0; i < texts_.size(); ++i) {
            const Document& document = documentAt(i);
            const SourceFile& file = files.files.emplace_back(
                SourceFile{formatOrigin(document.origin), isRefused(i) ? std::string(document.text) : texts_[i], {}});
            files.documents.push_back({{&file, 0}, file.text, {}, false});
        }
        Catalog readBack = loadCatalog(std::move(files));
        if (readBack.documents.size() != catalog_.documents.size()) {
            throw std::runtime_error(fmt::format("What would be written cannot be loaded: {}",
                                                 formatFinding(readBack.report.findings.front(), false)));
        }
        return readBack;
    }

    /// Finds what leads to a document that is refused.
    void findLeftBehind(const Catalog& readBack) {
        if (refused_ == 0) {
            return;
        }
        const Links referrers = linksToReferrers(readBack);
        std::vector<std::pair<std::string, std::string>> open;
        for (std::size_t i = 0; i < texts_.size(); ++i) {
            if (isRefused(i)) {
                open.emplace_back(documentAt(i).typeId, documentAt(i).typeId);
            }
        }
        while (!open.empty()) {
            const auto [typeId, cause] = open.back();
            open.pop_back();
            for (const std::string& referrer : referrers.at(typeId)) {
                const std::size_t position = catalog_.positions.at(referrer);
                if (!isRefused(position) && causes_.emplace(position, cause).second) {
                    open.emplace_back(referrer, cause);
                }
            }
        }
        for (const auto& [position, cause] : causes_) {
            add(leftBehind, documentAt(position),
                fmt::format("It {} {}, which data model {} cannot represent.",
                            options_.isClosed ? "is left out, as it needs" : "cannot be loaded without", cause,
                            options_.version));
            findings_.back().cause = cause;
        }
    }

    /// That of the catalog; names after typeids do not depend on where the documents lay.
    [[nodiscard]] std::vector<std::size_t> order() const {
        std::vector<std::size_t> positions(texts_.size());
        std::iota(positions.begin(), positions.end(), 0);
        if (options_.isFlat) {
            std::sort(positions.begin(), positions.end(), [this](std::size_t left, std::size_t right) {
                return documentAt(left).typeId < documentAt(right).typeId;
            });
        }
        return positions;
    }

    void addTo(OutputFolder& output, std::size_t position) const {
        const Document& document = documentAt(position);
        if (isRefused(position) || (options_.isClosed && causes_.count(position) != 0)) {
            return;
        }
        if (!options_.lineFile.empty()) {
            output.addLine(options_.lineFile, texts_[position]);
        } else if (options_.isFlat) {
            output.add(document.typeId, texts_[position]);
        } else {
            output.addInPlace(document.origin, texts_[position]);
        }
    }

    /// Compares the objects that were with those that the texts define.
    void findLosses(const Catalog& readBack) {
        const std::map<std::string, Item> items = itemsOf(catalog_);
        const std::map<std::string, Item> itemsRead = itemsOf(readBack);
        Progress progress("Comparing", items.size());
        for (const auto& [typeId, item] : items) {
            progress.advance();
            const Item& itemRead = itemsRead.at(typeId);
            if (item.document->text != itemRead.document->text) {
                for (const Change& change : changesOf(typeId, catalog_, item, readBack, itemRead)) {
                    ++losses_;
                    if (!options_.isQuiet) {
                        add(loss, *item.document, change.message);
                    }
                }
            }
        }
    }

    /// Whether what was written loads, as far as nothing was left behind.
    void checkWritten(const OutputFolder& output) const {
        Sources sources;
        sources.paths = output.files();
        ReportOptions options;
        options.hasWarnings = false;
        const Report report = reportOn(readDocumentFiles(sources), options);
        const auto refused =
            static_cast<std::size_t>(std::count(report.isRefused.begin(), report.isRefused.end(), true));
        if (refused != (options_.isClosed ? 0 : causes_.size()) || report.documents != output.size()) {
            throw std::runtime_error(
                fmt::format("What was written to {} cannot be loaded; check tells why.", printable(output.name())));
        }
    }

    void print(const OutputFolder& output) const {
        const std::string left = causes_.empty() ? ""
                                                 : fmt::format(", {} {} without {}", causes_.size(),
                                                               options_.isClosed ? "left out" : "cannot be loaded",
                                                               refused_ == 1 ? "it" : "them");
        const std::string summary = fmt::format("{} in {} for data model {}, {} rewritten; {} cannot be represented{}.",
                                                counted(output.size(), "document"), printable(output.name()),
                                                options_.version, rewritten_, refused_, left);
        printFindings(findings_,
                      {exportRules(),
                       summary,
                       {{"written", output.size()},
                        {"rewritten", rewritten_},
                        {"notRepresentable", refused_},
                        {"leftBehind", causes_.size()},
                        {"losses", losses_}}},
                      options_.format);
    }

    void add(std::string_view rule, const Document& document, const std::string& message) {
        Finding finding = findingOf(document.origin, document.typeId, message);
        const auto& rules = exportRules();
        const auto row =
            std::find_if(rules.begin(), rules.end(), [&](const ReportRule& each) { return each.name == rule; });
        finding.level = row->level;
        finding.rule = row->name;
        findings_.push_back(std::move(finding));
    }

    const Catalog& catalog_;
    const ExportOptions& options_;
    Parameters::DataModelVersion version_;
    /// As the documents of the catalog; empty where the data model cannot represent one.
    std::vector<std::string> texts_;
    /// By position, of documents that lead to one which cannot be represented, its typeid.
    std::map<std::size_t, std::string> causes_;
    std::vector<Finding> findings_;
    std::size_t refused_ = 0;
    std::size_t rewritten_ = 0;
    std::size_t losses_ = 0;
};

Status exportCatalog(const ExportOptions& options) {
    const Catalog catalog = loadForUse(options.sources);
    Export result(catalog, options);
    result.run();
    return statusOf(catalog.report) | result.status();
}

} // namespace

void addExport(CLI::App& app, Status& status) {
    auto* command =
        app.add_subcommand("export", "Write a catalog for another data model version and report what is lost");
    auto options = std::make_shared<ExportOptions>();
    addSources(*command, options->sources);
    addDataModel(*command, options->version)->required();
    auto* out =
        command->add_option("--out", options->folder, "Output folder, created if needed; files keep their places in it")
            ->type_name("DIR");
    auto* lines = command->add_option("--jsonl", options->lineFile, "Write one file with a document per line instead")
                      ->type_name("FILE")
                      ->excludes(out);
    command->add_flag("--flat", options->isFlat, "Name files after typeids, all in one folder")->excludes(lines);
    command->add_flag("--closed", options->isClosed,
                      "Leave out documents that cannot be loaded without others that are not written");
    addForce(*command, options->overwrite);
    command->add_flag("--quiet", options->isQuiet, "Do not report what rewriting loses");
    addFormat(*command, options->format);
    addExample(*command, "catalog --data-model 1.0.0 --out catalog-1.0.0 --closed");
    command->callback([options, &status] {
        if (options->folder.empty() && options->lineFile.empty()) {
            throw CLI::RequiredError("--out or --jsonl");
        }
        status = exportCatalog(*options);
    });
}

} // namespace Tool
