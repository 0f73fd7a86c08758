#include "batch.h"

#include "batch_log.h"
#include "command.h"
#include "files.h"
#include "fill.h"
#include "graphics.h"
#include "interruption.h"
#include "line_queue.h"
#include "name_claims.h"
#include "standard_streams.h"

#include <exception>
#include <istream>
#include <memory>
#include <thread>

namespace quillmarker::tool
{
namespace
{

namespace fs = std::filesystem;

constexpr std::size_t kLinesAhead = 4;  // waiting for each job

/// What a file holds; a stream does not know.
std::optional<std::uintmax_t> SizeOf(const std::string& name)
{
    std::error_code error;
    if (name == kStandardStream || !fs::is_regular_file(name, error))
        return std::nullopt;
    const std::uintmax_t size = fs::file_size(name, error);
    return error ? std::nullopt : std::optional(size);
}

Result<bool> MakeFolderFor(const fs::path& file)
{
    std::error_code error;
    if (file.has_parent_path())
        fs::create_directories(file.parent_path(), error);
    return error ? Result<bool>(Failure{file.parent_path().string() + ": " + error.message()}) : true;
}

class Run
{
public:
    Run(const Batch& batch, const Document& source)
        : m_batch(batch),
          m_source(source),
          m_dataName(Shown(batch.data)),
          m_log(m_dataName, SizeOf(batch.data)),
          m_queue(kLinesAhead * batch.jobs)
    {
    }

    int Make(std::istream& input)
    {
        const Interruption interruption;
        std::vector<std::thread> workers;
        for (unsigned i = 0; i < m_batch.jobs; ++i)
            workers.emplace_back([this] { Work(); });
        const std::int64_t lines = Read(input);
        m_queue.Close();
        for (std::thread& worker : workers)
            worker.join();
        m_log.Finish();
        return Outcome(input, lines);
    }

private:
    /// Hands out the lines that hold something; how many there were, empty ones too.
    std::int64_t Read(std::istream& input)
    {
        DataLine line;
        std::int64_t ticket = 0;
        std::int64_t number = 0;
        while (Interruption::Signal() == 0 && std::getline(input, line.text))
        {
            ++number;
            line.size += line.text.size() + 1;
            if (line.text.find_first_not_of(" \t\r") == std::string::npos)
                continue;
            line.number = number;
            line.ticket = ticket++;
            m_queue.Push(std::move(line));
            line = {};
        }
        return number;
    }

    int Outcome(const std::istream& input, std::int64_t lines) const
    {
        if (const int signal = Interruption::Signal())
        {
            Complain("stopped by a signal; no line behind line " + std::to_string(lines) + " was worked on");
            return kEndedBySignal + signal;
        }
        if (input.bad())
        {
            Complain(m_dataName + ": it could not be read behind line " + std::to_string(lines));
            return kFailed;
        }
        if (m_log.HasFailures())
            return kFailed;
        return m_log.HasMissing() ? kMissing : kDone;
    }

    void Work()
    {
        while (const auto line = m_queue.Pop())
        {
            const auto made = MakeReport(*line);
            if (made)
                m_log.Done(line->size);
            else
                m_log.Failed(line->size, made.Message());
        }
    }

    Result<bool> MakeReport(const DataLine& line)
    {
        const std::string place = m_dataName + ":" + std::to_string(line.number) + ": ";
        const auto data = ParseReportData(line.text, m_dataName, line.number);
        const auto name = data ? m_batch.output.For(*data, line.number) : Failure{data.Message()};
        const std::int64_t owner = m_claims.Claim(line.ticket, line.number, name ? std::optional(*name) : std::nullopt);
        if (!data)
            return Failure{data.Message()};
        if (!name)
            return Failure{place + name.Message()};
        if (owner != 0)
            return Failure{place + "line " + std::to_string(owner) + " has the same output \"" + *name + "\""};
        const auto written = WriteReport(*data, *name, line.number);
        return written ? Result<bool>(true) : Failure{place + written.Message()};
    }

    Result<bool> WriteReport(const ReportData& data, const std::string& name, std::int64_t line)
    {
        Report report;
        report.Box().OpenValue(m_source.Detached());  // threads share no table of formats
        Filling filling = Fill(report, data, m_batch.folder);
        if (!filling.error.empty())
            return Failure{filling.error};
        if (auto folder = MakeFolderFor(name); !folder)
            return folder;
        auto written = WriteOutput(report.Box().Value(), name, m_batch.form);
        if (written && !m_batch.allowMissing)
        {
            std::erase_if(filling.missing, [&](const std::string& marker) { return m_batch.output.Uses(marker); });
            m_log.Missing(line, filling.missing);
        }
        return written;
    }

    const Batch& m_batch;
    const Document& m_source;
    std::string m_dataName;
    BatchLog m_log;
    LineQueue m_queue;
    NameClaims m_claims;
};

}  // namespace

int RunBatch(const Batch& batch, const Document& source)
{
    const auto input = OpenInput(batch.data);
    if (!input)
    {
        Complain(input.Message());
        return kFailed;
    }
    const auto graphics = IsOnPages(batch.form.kind) ? std::make_unique<Graphics>() : nullptr;
    return Run(batch, source).Make(**input);
}

}  // namespace quillmarker::tool
