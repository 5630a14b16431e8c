#include "agents/LogLineApply.h"

#include <algorithm>

#include "agents/IsoDate.h"
#include "agents/PromptText.h"
#include "support/Saturating.h"

namespace vantrelle {

namespace {

constexpr double kFutureSlack = 86'400;  // a clock a day ahead is a wrong date, not a reply to come

// A token count as the figures use it: a negative one counts as 0.
std::int64_t count(std::int64_t value) {
    return std::max<std::int64_t>(value, 0);
}

std::optional<Date> dateOf(bool present, std::string_view text) {
    return present ? parseIsoDate(text) : std::nullopt;
}

// A date so far ahead that the line is ignored: one line dated 9999 would otherwise hold the 5-hour
// window open and the session "running" for ever.
bool tooLate(const std::optional<Date>& date, LineContext& context) {
    if (!date || *date <= context.now + kFutureSlack) return false;
    ++context.sink.problems.futureLines;
    return true;
}

void note(const std::optional<Date>& date, AISessionMeta& meta) {
    if (!date) return;
    if (!meta.firstTimestamp || *meta.firstTimestamp > *date) meta.firstTimestamp = date;
    if (!meta.lastTimestamp || *meta.lastTimestamp < *date) meta.lastTimestamp = date;
}

void takePrompt(std::string text, AISessionMeta& meta) {
    if (!meta.firstPrompt) meta.firstPrompt = text;
    meta.lastPrompt = std::move(text);
}

void claudeReply(const ClaudeLine& line, const std::optional<Date>& date, LineContext& context) {
    if (!line.messageIsObject || !line.usageIsObject) return;
    std::string key;
    // Without requestId and uuid the key stays empty: such a line is a reply of its own.
    if (line.hasRequestId || line.hasUuid) {
        const std::string_view second = line.hasRequestId ? line.requestId : line.uuid;
        const std::string_view id = line.hasMessageId ? line.messageId : std::string_view{};
        key.reserve(id.size() + 1 + second.size());
        key.append(id).append(1, '|').append(second);
    }
    ReplyFigures figures;
    figures.time = date ? *date : context.now;
    figures.input = count(line.input);
    figures.output = count(line.output);
    figures.cacheRead = count(line.cacheRead);
    figures.cacheWrite = count(line.cacheWrite);
    context.sink.addClaude(std::move(key), figures, line.hasModel ? line.model : std::string_view{});
}

void claudeTitle(const ClaudeLine& line, AISessionMeta& meta) {
    std::string_view raw;
    if (line.hasCustomTitle)
        raw = line.customTitle;
    else if (line.hasTitle)
        raw = line.title;
    else if (line.hasAiTitle)
        raw = line.aiTitle;
    else if (line.hasAnyTitle)
        raw = line.anyTitle;
    else
        return;
    std::string cleaned = cleanPrompt(raw);
    if (!cleaned.empty()) meta.title = std::move(cleaned);
}

void geminiMessage(const GeminiMessage& message, LineContext& context) {
    const auto date = dateOf(message.hasDate, message.date);
    if (tooLate(date, context)) return;
    AISessionMeta& meta = context.meta;
    note(date, meta);
    const std::string_view type = message.hasType ? message.type : std::string_view{};
    if (type == "user") {
        std::string text = cleanPrompt(message.text);
        if (!text.empty()) takePrompt(std::move(text), meta);
        return;
    }
    if (type != "gemini" || !message.hasId || !message.tokensIsObject) return;
    const std::int64_t input = count(message.input), cached = count(message.cached);
    const std::int64_t output = saturatingAdd(count(message.output), count(message.thoughts));
    if (saturatingAdd(input, output) < 1) return;
    const std::string_view model = message.hasModel && !message.model.empty() ? message.model : "gemini";
    auto& events = context.state.geminiEvents;
    auto it = events.find(message.id);
    if (it == events.end()) {
        // A message rewritten under its id replaces its event and is no new reply.
        ++meta.messages;
        ++meta.modelCounts[std::string(model)];
        it = events.emplace(std::string(message.id), AIUsageEvent{}).first;
    }
    AIUsageEvent& event = it->second;
    event.timestamp = date ? *date : context.now;
    event.input = input - std::min(input, cached);
    event.output = output;
    event.cacheRead = std::min(input, cached);
    event.cacheWrite = 0;
    event.model = model;
    event.tool = AgentTool::gemini;
    event.sessionId = meta.sessionId;
}

}  // namespace

void applyClaude(const ClaudeLine& line, LineContext& context) {
    const auto date = dateOf(line.hasDate, line.date);
    if (tooLate(date, context)) return;
    AISessionMeta& meta = context.meta;
    if (line.hasCwd && !line.cwd.empty()) meta.cwd = line.cwd;
    if (line.hasBranch && !line.branch.empty() && line.branch != "HEAD")
        meta.branch = std::string(line.branch);
    note(date, meta);
    const std::string_view type = line.hasType ? line.type : std::string_view{};
    if (type == "assistant") {
        claudeReply(line, date, context);
    } else if (type == "user") {
        if (!line.messageIsObject || !line.contentIsString) return;
        std::string text = cleanPrompt(line.content);
        if (text.empty() || text.starts_with("<") || text.starts_with("[Image")) return;
        takePrompt(std::move(text), meta);
    } else if (type == "custom-title" || type == "ai-title") {
        claudeTitle(line, meta);
    }
}

void applyCodex(const CodexLine& line, LineContext& context) {
    const auto date = dateOf(line.hasDate, line.date);
    if (tooLate(date, context)) return;
    AISessionMeta& meta = context.meta;
    note(date, meta);
    const std::string_view type = line.hasType ? line.type : std::string_view{};
    if (type == "session_meta") {
        if (line.hasCwd) meta.cwd = line.cwd;
        if (line.hasBranch) meta.branch = std::string(line.branch);
        return;
    }
    if (type != "event_msg" || !line.hasPayloadType || line.payloadType != "token_count") return;
    if (!line.infoIsObject || !line.totalIsObject) return;
    // Cumulative totals of the session; a counter that falls (a reset) gives 0 for this line and the
    // next delta runs from the lower value. Totals are at least 0, so no difference can overflow.
    const CodexTotals total{count(line.input), count(line.output), count(line.cached)};
    const CodexTotals last = context.state.codexLastTotal.value_or(CodexTotals{});
    context.state.codexLastTotal = total;
    const std::int64_t in = std::max<std::int64_t>(total.input - last.input, 0);
    const std::int64_t out = std::max<std::int64_t>(total.output - last.output, 0);
    const std::int64_t cached = std::max<std::int64_t>(total.cached - last.cached, 0);
    if (saturatingAdd(saturatingAdd(in, out), cached) < 1) return;
    std::string_view model = "codex";
    if (line.hasInfoModel)
        model = line.infoModel;
    else if (line.hasPayloadModel)
        model = line.payloadModel;
    AIUsageEvent event;
    event.timestamp = date ? *date : context.now;
    event.sessionId = meta.sessionId;
    event.tool = AgentTool::codex;
    event.model = model;
    event.input = in - std::min(in, cached);  // the cumulative input includes the cached part
    event.output = out;
    event.cacheRead = cached;
    context.sink.events.push_back(std::move(event));
    ++meta.messages;
    ++meta.modelCounts[std::string(model)];
}

void applyGemini(const GeminiLine& line, LineContext& context) {
    AISessionMeta& meta = context.meta;
    if (line.setIsObject) {
        for (std::size_t i = 0; i < line.setMessageCount; ++i) geminiMessage(line.setMessages[i], context);
        if (line.hasSummary && !line.summary.empty()) meta.title = cleanPrompt(line.summary);
        return;
    }
    if (line.hasRewind) return;  // messages counted earlier stay counted
    if (!line.hasType && line.hasSessionId) {
        const auto start = dateOf(line.hasStartTime, line.startTime);
        if (tooLate(start, context)) return;
        note(start, meta);
        if (line.hasKind && line.kind == "subagent" && !meta.title) meta.title = "Subagent";
        return;
    }
    geminiMessage(line.message, context);
}

void applyGeminiDocument(const GeminiDocument& document, LineContext& context) {
    const auto start = dateOf(document.hasStart, document.start);
    if (!tooLate(start, context)) note(start, context.meta);
    if (document.hasSummary && !document.summary.empty()) context.meta.title = cleanPrompt(document.summary);
    for (std::size_t i = 0; i < document.messageCount; ++i) geminiMessage(document.messages[i], context);
}

}  // namespace vantrelle
