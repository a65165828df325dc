#include "reader/PromFormat.h"

#include <algorithm>
#include <array>

#include "reader/ReadingText.h"

namespace {

std::string EscapedLabel(std::string_view value) {
    std::string text;
    for (const char each : value) {
        if (each == '\\' || each == '"') text += '\\';
        if (each == '\n')
            text += "\\n";
        else
            text += each;
    }
    return text;
}

class CPromWriter {
public:
    CPromWriter(std::span<const Reading> readings, std::string_view port)
        : round(readings), portLabel("port=\"" + EscapedLabel(port) + '"') {}

    // A metric whose samples `append` writes, reading by reading.
    template <class Append>
    void Metric(std::string_view newName, std::string_view type, std::string_view help, Append append) {
        Begin(newName, type, help);
        for (const Reading& reading : round) append(reading);
    }

    void Begin(std::string_view newName, std::string_view type, std::string_view help) {
        name = newName;
        text.append("# HELP ").append(name).append(" ").append(help).append("\n");
        text.append("# TYPE ").append(name).append(" ").append(type).append("\n");
    }

    void Sample(const Reading& reading, std::string_view value, std::string_view furtherLabels = "") {
        LineSample(",address=\"" + std::to_string(reading.address) + '"' + std::string(furtherLabels), value);
    }

    void LineSample(std::string_view furtherLabels, std::string_view value) {
        text.append(name).append("{").append(portLabel).append(furtherLabels).append("} ").append(value).append("\n");
    }

    std::string Text() && { return std::move(text); }

private:
    std::span<const Reading> round;
    std::string portLabel, text;
    std::string_view name;
};

std::string LabelsOfSettings(const CounterRecord& settings) {
    const SettingsWords words = WordsOfSettings(settings);
    const std::array<std::pair<std::string_view, std::string_view>, 5> named{{{"sensitivity", words.sensitivity},
                                                                              {"language", words.language},
                                                                              {"direction", words.direction},
                                                                              {"sd_detect", words.sdDetect},
                                                                              {"sd_period", words.sdPeriod}}};
    std::string labels;
    for (const auto& [label, value] : named) labels.append(",").append(label).append("=\"").append(value).append("\"");
    return labels;
}

void AppendCounts(CPromWriter& writer) {
    writer.Metric("quorvane_people_in_total", "counter", "People counted in; after 65535 comes 0.",
                  [&](const Reading& reading) {
                      if (reading.status) writer.Sample(reading, std::to_string(reading.status->inCount));
                  });
    writer.Metric("quorvane_people_out_total", "counter", "People counted out; after 65535 comes 0.",
                  [&](const Reading& reading) {
                      if (reading.status) writer.Sample(reading, std::to_string(reading.status->outCount));
                  });
    writer.Metric("quorvane_sensor_clock_seconds", "gauge", "The counter's own clock, in Unix time.",
                  [&](const Reading& reading) {
                      if (reading.status && reading.status->deviceTime != 0)
                          writer.Sample(reading, std::to_string(reading.status->deviceTime));
                  });
}

void AppendAnswers(CPromWriter& writer) {
    writer.Metric("quorvane_sensor_up", "gauge", "Whether the counter gave a whole answer.",
                  [&](const Reading& reading) { writer.Sample(reading, reading.answer == Answer::Whole ? "1" : "0"); });
    writer.Metric("quorvane_sensor_answer", "gauge", "What the counter answered: 1 for what it was, 0 for the others.",
                  [&](const Reading& reading) {
                      for (const Answer each :
                           {Answer::Whole, Answer::Silent, Answer::Spoilt, Answer::Doubled, Answer::NotAsked}) {
                          writer.Sample(reading, each == reading.answer ? "1" : "0",
                                        ",answer=\"" + std::string(AnswerWord(each)) + '"');
                      }
                  });
}

} // namespace

std::string PromText(std::span<const Reading> round, std::string_view port) {
    CPromWriter writer(round, port);
    AppendCounts(writer);
    AppendAnswers(writer);
    if (std::ranges::any_of(round, [](const Reading& reading) { return reading.settings.has_value(); })) {
        writer.Metric("quorvane_sensor_settings_info", "gauge", "The counter's settings, as labels.",
                      [&](const Reading& reading) {
                          if (reading.settings) writer.Sample(reading, "1", LabelsOfSettings(*reading.settings));
                      });
    }
    if (!round.empty()) {
        const std::int64_t last = std::ranges::max(round, {}, [](const Reading& reading) {
                                      return reading.time.microseconds;
                                  }).time.microseconds;
        writer.Begin("quorvane_round_timestamp_seconds", "gauge", "When the last counter of the round was asked.");
        writer.LineSample("", std::to_string(last / 1'000'000));
    }
    return std::move(writer).Text();
}
