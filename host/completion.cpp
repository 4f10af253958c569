// How candidates are found: the words in front of the cursor are walked over as in a parse (walk.h), but no value is
// read. Where the walk ends tells what may stand at the cursor:
//
//     thumbs --size |        an option waits for its value       values of --size, or paths
//     thumbs --qu|           the word begins with '-'            names; values behind '='
//     thumbs @li|            '@', with response files            files
//     nctl a|                the parser has commands             their names
//     thumbs a.png b|        none of that                        values of the positional argument whose turn it is
//
// What was found is then written for one of the shells: see answerInFull and answerForBash, and the scripts that read
// it in completion_scripts.cpp.
#include "completion.h"

#include <algorithm>
#include <utility>

#include "library.h"
#include "parse.h"
#include "process_environment.h"
#include "shown_text.h"
#include "text_parts.h"
#include "walk.h"

namespace vorn_3_1::host::detail {

namespace {

/// A shell cannot list it, and a terminal might obey it.
bool isShowable(std::string_view text) {
    while (!text.empty()) {
        const Character character = firstCharacter(text);
        if (!character.isCharacter || isControl(character.code)) return false;
        text.remove_prefix(character.length);
    }
    return true;
}

/// All names that a shortened one fits, found by the library. It tells those that fit best, and a word in full counts
/// more than a beginning; so it gets names in which no word can be typed in full: each ends with a byte that no text
/// has. Then all that fit, fit equally well.
///
///     typed "out-f"  ->  "output-file", "output-format", "out-folder"
class FittingNames {
public:
    void add(std::string_view name) {
        marked.enter(withMarks(name), "", What::flag, TypeFactsOf<bool>::facts);
        mostHyphens = std::max(mostHyphens, std::count(name.begin(), name.end(), '-'));
    }

    /// The numbers of the names, in the order in which they were added. Names with more words than the typed one fit as
    /// if their further words were typed, and empty.
    std::vector<unsigned> find(const std::string& typed) {
        if (library == nullptr) library = std::make_unique<Library>(marked, Library::Of::options);
        std::vector<std::string> forms = {"--" + typed};
        for (auto hyphens = std::count(typed.begin(), typed.end(), '-'); hyphens < mostHyphens; ++hyphens)
            forms.push_back(forms.back() + "-");
        std::vector<unsigned> numbers;
        for (const Meaning& meaning : library->ask(forms)) {
            if (meaning.kind == Meaning::Kind::found) numbers.push_back(meaning.index);
            for (const std::string& name : meaning.candidates)
                numbers.push_back(marked.find(name)->index);
        }
        std::sort(numbers.begin(), numbers.end());
        return numbers;
    }

private:
    static std::string withMarks(std::string_view name) {
        std::string text;
        for (const char character : name) {
            if (character == '-') text += mark;
            text += character;
        }
        return text + mark;
    }

    static constexpr char mark = '\xFF';

    Table marked{"", "", nullptr};
    std::unique_ptr<Library> library;
    std::ptrdiff_t mostHyphens = 0;
};

/// A name that an option answers to.
struct Form {
    std::string name;
    const Record* record;
    bool isOff;
};

class Completer {
public:
    explicit Completer(Table& outermost) : root(outermost), table(&outermost), data(outermost) {
        findings.data = &data;
    }

    /// An option that waits for its value comes first: what stands behind it is completed as that value.
    Completions run(std::vector<std::string> before, const std::string& typed) {
        word = typed;
        inFront = before;
        const std::unique_ptr<Walk> walk = walkOver(before);
        if (walk->endsEarly) return {};
        if (walk->waiting != nullptr) {
            completeValue(*walk->waiting, "", word);
        } else if (isOption(*walk)) {
            completeOption(std::move(before));
        } else if (table->has(&Table::readsResponseFiles) && word.substr(0, 1) == "@") {
            found.paths = Completion::files;
            found.kept = "@";
        } else if (!table->commands.empty()) {
            completeCommand();
        } else {
            completePositional(*walk);
        }
        return std::move(found);
    }

private:
    /// Walks into the commands, and leaves in `before` what stands behind the last one.
    std::unique_ptr<Walk> walkOver(std::vector<std::string>& before) {
        while (true) {
            std::vector<Argument> arguments;
            for (const std::string& text : before)
                arguments.push_back({text, 0, 0});
            prepare(*table);
            auto walk =
                std::make_unique<Walk>(*table, Walk::Over::commandLine, std::move(arguments), 0, findings);
            walk->run();
            if (walk->command == nullptr) return walk;
            table = walk->command;
            before.clear();
            for (Argument& argument : walk->left)
                before.push_back(std::move(argument.text));
        }
    }

    /// Whether the word could be an option's. Behind "--" none is, nor inside the arguments that rest() takes.
    bool isOption(const Walk& walk) const {
        if (word.substr(0, 1) != "-" || walk.isBehindTerminator) return false;
        const auto isRest = [](const Record& record) { return record.what == What::rest; };
        return walk.positionals == 0 || std::none_of(table->records.begin(), table->records.end(), isRest);
    }

    /// Completes a name or, behind '=', a value: the name is walked over as if it stood alone, and the walk tells which
    /// option waits for a value then, or took its implicit one.
    void completeOption(std::vector<std::string> before) {
        const std::string name(nameOf(word));
        if (name.size() == word.size()) return completeName();
        if (!canNameOption(name)) return;
        before.push_back(name);
        const std::unique_ptr<Walk> walk = walkOver(before);
        const Record* record = walk->waiting;
        if (record == nullptr && !walk->tokens.empty() && walk->tokens.back().isImplicit) {
            const Token& token = walk->tokens.back();
            record = &token.table->records[token.index];
        }
        if (record != nullptr) completeValue(*record, name + "=", word.substr(name.size() + 1));
    }

    /// With nothing typed, all options are listed, without their "no-" forms.
    void completeName() {
        const std::size_t hyphens = word.substr(0, 2) == "--" ? 2 : 1;
        const std::string typed = word.substr(hyphens);
        const std::vector<Form> forms = allForms();
        std::vector<const Form*> fitting;
        if (typed.empty()) {
            for (const Form& form : forms) {
                if (!form.isOff) fitting.push_back(&form);
            }
        } else if (canNameOption(word)) {
            for (const Form& form : forms)
                names.add(form.name);
            for (const unsigned number : names.find(typed))
                fitting.push_back(&forms[number]);
        }
        for (const Form* form : worthShowing(fitting, typed.empty()))
            offerName(*form);
        if (found.candidates.size() == 1) offerBehindSign();
        if (!typed.empty()) decideListing(hyphens);
    }

    std::vector<Form> allForms() const {
        std::vector<Form> forms;
        for (const Table* owner = table; owner != nullptr; owner = owner->outer) {
            for (const Record& record : owner->records) {
                if (!record.isOption() || (owner != table && !record.isGlobal)) continue;
                for (const std::string& name : record.allNames()) {
                    forms.push_back({name, &record, false});
                    if (record.what == What::toggle) forms.push_back({"no-" + name, &record, true});
                }
            }
        }
        return forms;
    }

    /// The first name of each option that fits. Hidden ones only if nothing else fits what is typed.
    static std::vector<const Form*> worthShowing(const std::vector<const Form*>& fitting,
                                                 bool isNothingTyped) {
        std::vector<const Form*> shown;
        std::vector<const Form*> hidden;
        for (const Form* form : fitting) {
            if (form->record->isDeprecated) continue;
            std::vector<const Form*>& list = form->record->isHidden ? hidden : shown;
            const bool isThere = std::any_of(list.begin(), list.end(), [form](const Form* other) {
                return other->record == form->record && other->isOff == form->isOff;
            });
            if (!isThere) list.push_back(form);
        }
        return shown.empty() && !isNothingTyped ? hidden : shown;
    }

    void offerName(const Form& form) {
        const bool needsValue = form.record->hasValue() && form.record->implicit() == nullptr;
        const std::string sign = needsValue && form.name.size() > 1 ? "=" : "";
        offer(hyphened(form.name) + sign, form.record->description, !sign.empty());
        last = form.record;
    }

    /// An option that stands alone or has its value behind '='.
    void offerBehindSign() {
        if (last->implicit() == nullptr) return;
        offer(found.candidates[0].text + "=", found.candidates[0].description, true);
    }

    /// A shell replaces the word by what all candidates have in common. That is right only if it is no shorter than the
    /// word and fits the same names; otherwise the candidates are to be listed only.
    void decideListing(std::size_t hyphens) {
        const auto extends = [this](const Candidate& candidate) { return beginsWith(candidate.text, word); };
        const std::vector<Candidate>& all = found.candidates;
        if (all.size() < 2 || std::all_of(all.begin(), all.end(), extends)) return;
        std::string common = all[0].text;
        for (const Candidate& candidate : all) {
            const std::size_t most = std::min(common.size(), candidate.text.size());
            std::size_t same = 0;
            while (same < most && common[same] == candidate.text[same])
                ++same;
            common.resize(same);
        }
        const std::size_t front = hyphens == 0 ? 0 : 2;  // whatever was typed, the candidates have two
        found.areListedOnly =
            common.size() < word.size() ||
            names.find(common.substr(std::min(front, common.size()))) != names.find(word.substr(hyphens));
    }

    /// Of each command, the first of its names that fits.
    void completeCommand() {
        std::vector<std::pair<std::string, const Table*>> forms;
        for (const std::unique_ptr<Table>& command : table->commands) {
            for (std::string& name : piecesOf(command->names, ','))
                forms.emplace_back(std::move(name), command.get());
        }
        std::vector<unsigned> numbers;
        for (unsigned i = 0; i < forms.size(); ++i) {
            names.add(forms[i].first);
            numbers.push_back(i);
        }
        if (!word.empty() && !canNameOption("--" + word)) return;
        if (!word.empty()) numbers = names.find(word);
        const Table* previous = nullptr;
        for (const unsigned number : numbers) {
            if (forms[number].second == std::exchange(previous, forms[number].second)) continue;
            offer(forms[number].first, previous->description, false);
        }
        if (!word.empty()) decideListing(0);
    }

    /// What the next positional argument may be: the one whose turn it is or, behind one that takes more or less, all
    /// that may come.
    void completePositional(const Walk& walk) {
        std::size_t before = walk.positionals;
        bool isCertain = true;
        for (const Record& record : table->records) {
            if (!record.isPositional()) continue;
            const bool isOne = !record.takesRest && !record.mayBeLeftOut();
            isCertain = isCertain && isOne;
            if (isCertain && before > 0) {
                --before;
                continue;
            }
            completeValue(record, "", word);
            if (isCertain) return;
        }
    }

    /// `front` is what stands in the word in front of the value.
    void completeValue(const Record& record, std::string front, std::string_view typed) {
        if (record.separator != '\0') {
            const std::size_t end = typed.rfind(record.separator) + 1;
            front.append(typed, 0, end);
            typed.remove_prefix(end);
        }
        std::vector<std::string> texts;
        if (record.details && record.details->offer) {
            const Offer& offering = *record.details->offer;
            texts = offering.offers(typed, offering.wantsResult() ? resultInFront() : Result());
        } else if (record.choices() != nullptr) {
            texts = record.choiceTexts();
        } else if (record.type == &TypeFactsOf<bool>::facts) {
            texts = {"yes", "no"};
        } else if (record.completion != Completion::nothing) {
            found.paths = record.completion;
            found.kept = front;
        }
        for (const std::string& text : texts) {
            if (beginsWith(text, typed)) offer(front + text, "", false);
        }
    }

    /// For a host's function that wants to know what was typed before: the one place where values are read.
    Result resultInFront() const {
        std::vector<Argument> arguments;
        for (const std::string& text : inFront)
            arguments.push_back({text, 0, static_cast<int>(arguments.size() + 1)});
        const ProcessEnvironment environment;
        Parse parse(root, environment);
        parse.run(std::move(arguments));
        return Result(parse.data.release());
    }

    void offer(std::string text, std::string_view description, bool isOpen) {
        if (!isShowable(text)) return;
        found.candidates.push_back(
            {std::move(text), escaped(description.substr(0, description.find('\n'))), isOpen});
    }

    Table& root;
    Table* table;
    ResultData data;
    Findings findings;
    std::vector<std::string> inFront;  ///< The words there.
    std::string word;
    FittingNames names;
    Completions found;
    const Record* last = nullptr;  ///< Whose name was offered.
};

bool isBlank(char character) { return character == ' ' || character == '\t' || character == '\n'; }

std::string_view kindOf(const Completions& found) {
    if (found.paths != Completion::nothing) return found.paths == Completion::files ? "files" : "folders";
    return found.areListedOnly ? "list" : "words";
}

/// A line with the kind and what stands in front of a path, and one for each candidate: "=" or "." for whether it is
/// open, itself, its description.
std::string answerInFull(const Completions& found) {
    std::string answer = joined({kindOf(found), "\t", found.kept, "\n"});
    for (const Candidate& candidate : found.candidates)
        answer +=
            joined({candidate.isOpen ? "=" : ".", "\t", candidate.text, "\t", candidate.description, "\n"});
    return answer;
}

/// The kind, what stands in front of a path in what the shell replaces, the beginning of the path; and the candidates,
/// as the shell is to insert them.
std::string answerForBash(const Completions& found, const BashLine& line) {
    const bool isOpen = found.candidates.size() == 1 && found.candidates[0].isOpen;
    const std::string_view front =
        found.kept.size() > line.kept ? std::string_view(found.kept).substr(line.kept) : "";
    const std::string path = line.word.substr(std::min(found.kept.size(), line.word.size()));
    std::string answer =
        joined({isOpen ? "open" : kindOf(found), "\n", bashQuoted(front, line.quote), "\n", path, "\n"});
    const std::string_view fixed = std::string_view(line.word).substr(0, line.kept);
    for (const Candidate& candidate : found.candidates) {
        if (!beginsWith(candidate.text, fixed)) continue;
        answer += bashQuoted(std::string_view(candidate.text).substr(fixed.size()), line.quote) + "\n";
    }
    return answer;
}

/// The arguments are the shell's name, and for bash the line and the characters that end a word; for the others all
/// words, of which the last one is to be completed.
std::string answer(Table& root, std::vector<std::string> arguments) {
    const std::string shell = arguments.empty() ? "" : arguments.front();
    if (shell == "bash" && arguments.size() == 3) {
        BashLine line = bashLine(arguments[1], arguments[2]);
        return answerForBash(completionsOf(root, std::move(line.before), line.word), line);
    }
    if (arguments.size() < 2) return "";
    const std::string word = std::move(arguments.back());
    arguments.pop_back();
    arguments.erase(arguments.begin());
    return answerInFull(completionsOf(root, std::move(arguments), word));
}

}  // namespace

Completions completionsOf(Table& root, std::vector<std::string> before, const std::string& word) {
    return Completer(root).run(std::move(before), word);
}

/// Goes through the line once: inside quotes, between words, or in a word. `kept` moves to wherever bash would begin to
/// replace: behind a character that ends a word for bash, or behind a quote that is still open.
BashLine bashLine(std::string_view text, std::string_view breaks) {
    BashLine line;
    bool isProgram = true;
    bool isInside = false;  // a word
    std::size_t beforeQuote = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char character = text[i];
        if (line.quote != '\0') {
            if (character == line.quote) {
                line.quote = '\0';
                line.kept = beforeQuote;  // a word with whole quotes is replaced as a whole
            } else if (line.quote == '"' && character == '\\' && i + 1 < text.size()) {
                const bool isEscape = std::string_view("\\\"$`").find(text[i + 1]) != std::string_view::npos;
                if (!isEscape) line.word += character;
                line.word += text[++i];
            } else {
                line.word += character;
            }
        } else if (isBlank(character)) {
            if (isInside && !std::exchange(isProgram, false)) line.before.push_back(line.word);
            line.word.clear();
            line.kept = 0;
            isInside = false;
        } else {
            isInside = true;
            if (character == '\'' || character == '"') {
                line.quote = character;
                beforeQuote = line.kept;
                line.kept = line.word.size();
            } else if (character == '\\') {
                if (i + 1 < text.size()) line.word += text[++i];
            } else {
                line.word += character;
                if (breaks.find(character) != std::string_view::npos) line.kept = line.word.size();
            }
        }
    }
    return line;
}

/// `special` is what bash would act upon there. Within single quotes it acts upon nothing; a single quote itself is
/// written as '\''. A '~' means a folder only in front.
std::string bashQuoted(std::string_view text, char quote) {
    const std::string_view special = quote == '"'    ? "\\\"$`"
                                     : quote == '\'' ? ""
                                                     : " \t\"'\\$`<>|&;()[]{}*?!#";
    std::string quoted;
    if (quote == '\0' && text.substr(0, 1) == "~") quoted += '\\';
    for (const char character : text) {
        if (quote == '\'' && character == '\'') quoted += "'\\'";
        if (special.find(character) != std::string_view::npos) quoted += '\\';
        quoted += character;
    }
    return quoted;
}

/// Not an option for the library, so that no abbreviation becomes ambiguous by it: it counts in full, as the first
/// argument, and if the host has no option of this name.
std::optional<std::string> completionOutput(Table& root, const std::vector<std::string>& arguments,
                                            std::string& fault) {
    const std::string& name = root.completionName;
    if (name.empty() || arguments.empty()) return std::nullopt;
    const std::string option = "--" + name;
    const std::string& first = arguments[0];
    const bool hasSign = first.size() > option.size() && first[option.size()] == '=';
    if (!beginsWith(first, option) || (first.size() > option.size() && !hasSign)) return std::nullopt;
    if (root.find(name) != nullptr) return std::nullopt;
    std::string what = arguments.size() > 1 ? arguments[1] : "";
    if (hasSign) what = first.substr(option.size() + 1);
    if (what == "answer" && !hasSign) return answer(root, {arguments.begin() + 2, arguments.end()});
    std::string script = completionScript(what, root.names, name);
    if (!script.empty()) return script;
    fault = joined({"'", option, "' takes the name of a shell: bash, zsh or fish"});
    return std::nullopt;
}

}  // namespace vorn_3_1::host::detail
