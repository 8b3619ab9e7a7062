#include "cadhost/app/InputLisp.h"

#include <cmath>
#include <functional>
#include <sstream>
#include <utility>

#include "cadhost/app/Application.h"
#include "cadhost/commands/CommandInput.h"
#include "cadhost/commands/TypedInput.h"
#include "cadhost/geometry/Picking.h"
#include "cadhost/lisp/ArgCheck.h"
#include "cadhost/lisp/LispError.h"
#include "cadhost/lisp/ResBufConvert.h"

namespace cadhost {

using commands::InputRequest;
using lisp::Args;
using lisp::Interpreter;
using lisp::Kind;
using lisp::Value;

namespace {

enum Bits { kNoNull = 1, kNoZero = 2, kNoNegative = 4, kFlat = 64, kArbitrary = 128 };

Value pointValue(const ardo::Point3& p) {
    return lisp::makeList({Value::real(p[0]), Value::real(p[1]), Value::real(p[2])});
}

std::optional<ardo::Point3> pointOf(const Value& v) {
    ardo::ResBuf node;
    if (!v.isList() || !lisp::asPoint(v, node)) return std::nullopt;
    return node.point;
}

double normalized(double angle) {
    angle = std::fmod(angle, 2 * M_PI);
    return angle < 0 ? angle + 2 * M_PI : angle;
}

// One call of an input function: its prompt, its base point, the rules initget left for
// it (used up by this call) and the loop that asks until the input is good.
class Asking {
public:
    Asking(Interpreter& in, const Args& args, bool takesBase)
        : app_(applicationOf(in)), document_(documentOf(in)), rules_(std::exchange(document_.inputRules(), {})) {
        lisp::checkCount(args, 0, takesBase ? 2 : 1);
        for (const Value& a : args) {
            if (a.kind() == Kind::Str) question_ = a.asString();
            else if (takesBase && !base_ && (base_ = pointOf(a))) continue;
            else lisp::badArgType(takesBase ? "2D/3D point" : "stringp", a);
        }
        splitKeywords();
    }

    Drawing& drawing() { return document_.drawing(); }
    const std::optional<ardo::Point3>& base() const { return base_; }
    bool has(int bit) const { return (rules_.bits & bit) != 0; }
    bool hasKeywords() const { return !local_.empty(); }
    void setQuestion(std::string q) { question_ = std::move(q); }
    void say(const std::string& text) { app_.ui().print(text); }

    ardo::Point3 lastPoint() const {
        const auto p = document_.drawing().getVar("LASTPOINT");
        return p ? p->point : ardo::Point3{};
    }
    void remember(const ardo::Point3& p) { document_.drawing().setVar("LASTPOINT", ardo::ResBuf::point3(p)); }
    double angleBase() const {
        const auto v = document_.drawing().getVar("ANGBASE");
        return v ? v->real : 0.0;
    }
    bool clockwise() const {
        const auto v = document_.drawing().getVar("ANGDIR");
        return v && v->integer == 1;
    }

    // The next answer; a cancel ends the LISP expression, as Esc does.
    PromptAnswer next(const InputRequest& request) {
        std::optional<PromptAnswer> answer = app_.ui().ask(question_, request);
        if (!answer) throw lisp::LispError("Function cancelled");
        // A picked point wins over text; no text at all is Enter.
        PromptAnswer given = std::move(*answer);
        if (given.point) given.text.reset();
        else if (!given.text) given.text.emplace();
        return given;
    }

    // The other end of a distance or angle whose first point was given.
    ardo::Point3 secondPoint(const ardo::Point3& first) {
        question_ = "Specify second point: ";
        for (;;) {
            const PromptAnswer answer = next(commands::pointRequest(first));
            if (answer.point) return *answer.point;
            if (auto typed = commands::parsePoint(*answer.text, first)) return *typed;
            say(commands::kInvalidPoint);
        }
    }

    // The global form of the keyword the text names.
    std::optional<std::string> keyword(const std::string& text) const {
        if (local_.empty()) return std::nullopt;
        std::vector<std::string_view> words(local_.begin(), local_.end());
        const auto index = commands::matchKeyword(ardo::ResBuf::str(text), words);
        if (!index) return std::nullopt;
        return *index < global_.size() ? global_[*index] : local_[*index];
    }

    // Checks a number against bits 2 and 4 (angles have no sign to check); the complaint
    // when it fails.
    std::optional<std::string> refusal(double value, bool signMatters = true) const {
        const bool noZero = has(kNoZero), noNegative = has(kNoNegative) && signMatters;
        if ((noZero && value == 0) || (noNegative && value < 0)) {
            if (noZero && noNegative) return "Value must be positive and nonzero.\n";
            return noZero ? "Value must be nonzero.\n" : "Value must be positive.\n";
        }
        return std::nullopt;
    }

    // Asks until `take` accepts a typed text (or a picked point, which `takePoint` may
    // accept); Enter gives nil unless bit 1 forbids it; keywords and, with bit 128, any
    // text are returned as strings. `complaint` is shown for input nothing accepts.
    Value loop(const InputRequest& request, const std::string& complaint,
               const std::function<std::optional<Value>(const std::string&, std::string&)>& take,
               const std::function<std::optional<Value>(const ardo::Point3&, std::string&)>& takePoint = {}) {
        for (;;) {
            const PromptAnswer answer = next(request);
            std::string problem;
            if (answer.point) {
                if (takePoint)
                    if (auto v = takePoint(*answer.point, problem)) return *v;
                say(problem.empty() ? complaint : problem);
                continue;
            }
            const std::string& text = *answer.text;
            if (text.empty()) {
                if (!has(kNoNull)) return Value();
                continue;
            }
            if (auto word = keyword(text)) return Value::string(*word);
            if (auto v = take(text, problem)) return *v;
            if (problem.empty() && has(kArbitrary)) return Value::string(text);
            say(problem.empty() ? complaint : problem);
        }
    }

private:
    // "Yes No _Y N": the words before "_" are typed, those after it are returned.
    void splitKeywords() {
        std::istringstream words(rules_.keywords);
        std::string word;
        bool global = false;
        while (words >> word) {
            if (word.front() == '_') {
                global = true;
                word.erase(0, 1);
                if (word.empty()) continue;
            }
            (global ? global_ : local_).push_back(word);
        }
    }

    Application& app_;
    Document& document_;
    InputRules rules_;
    std::string question_;
    std::optional<ardo::Point3> base_;
    std::vector<std::string> local_, global_;
};

Value askPoint(Asking& ask, bool corner) {
    const std::string complaint = ask.hasKeywords() ? commands::kPointOrKeyword : commands::kInvalidPoint;
    auto accept = [&](const ardo::Point3& p, std::string&) -> std::optional<Value> {
        ask.remember(p);
        return pointValue(p);
    };
    return ask.loop(
        commands::pointRequest(ask.base(), corner), complaint,
        [&](const std::string& text, std::string& problem) -> std::optional<Value> {
            const auto p = commands::parsePoint(text, ask.lastPoint());
            if (!p) return std::nullopt;
            return accept(*p, problem);
        },
        accept);
}

Value getpointFn(Interpreter& in, const Args& args) {
    Asking ask(in, args, true);
    return askPoint(ask, false);
}

Value getcornerFn(Interpreter& in, const Args& args) {
    Asking ask(in, args, true);
    if (!ask.base()) throw lisp::LispError("too few arguments");
    return askPoint(ask, true);
}

Value getintFn(Interpreter& in, const Args& args) {
    Asking ask(in, args, false);
    return ask.loop({}, ask.hasKeywords() ? "Requires an integer value or option keyword.\n" : "Requires an integer value.\n",
                    [&](const std::string& text, std::string& problem) -> std::optional<Value> {
                        const auto v = commands::parseReal(text);
                        if (!v || text.find_first_of(".eE") != std::string::npos) return std::nullopt;
                        if (*v < -32768 || *v > 32767) {
                            problem = "Requires an integer between -32768 and 32767.\n";
                            return std::nullopt;
                        }
                        if (auto refused = ask.refusal(*v)) {
                            problem = *refused;
                            return std::nullopt;
                        }
                        return Value::integer(static_cast<std::int32_t>(*v));
                    });
}

Value getrealFn(Interpreter& in, const Args& args) {
    Asking ask(in, args, false);
    return ask.loop({}, ask.hasKeywords() ? "Requires numeric value or option keyword.\n" : "Requires numeric value.\n",
                    [&](const std::string& text, std::string& problem) -> std::optional<Value> {
                        const auto v = commands::parseReal(text);
                        if (!v) return std::nullopt;
                        if (auto refused = ask.refusal(*v)) {
                            problem = *refused;
                            return std::nullopt;
                        }
                        return Value::real(*v);
                    });
}

Value getdistFn(Interpreter& in, const Args& args) {
    Asking ask(in, args, true);
    const bool flat = ask.has(kFlat);
    // From a first point the distance is to a second one, asked for when no base was given.
    auto fromPoint = [&](const ardo::Point3& p, std::string& problem) -> std::optional<Value> {
        const ardo::Point3 from = ask.base().value_or(p);
        const ardo::Point3 to = ask.base() ? p : ask.secondPoint(p);
        const double d = commands::distanceBetween(from, to, flat);
        if (auto refused = ask.refusal(d)) {
            problem = *refused;
            return std::nullopt;
        }
        ask.remember(to);
        return Value::real(d);
    };
    return ask.loop(commands::pointRequest(ask.base()), "Requires numeric distance or two points.\n",
                    [&](const std::string& text, std::string& problem) -> std::optional<Value> {
                        if (const auto d = commands::parseReal(text)) {
                            if (auto refused = ask.refusal(*d)) {
                                problem = *refused;
                                return std::nullopt;
                            }
                            return Value::real(*d);
                        }
                        const auto p = commands::parsePoint(text, ask.lastPoint());
                        if (!p) return std::nullopt;
                        return fromPoint(*p, problem);
                    },
                    fromPoint);
}

// getangle counts from ANGBASE, getorient from the x axis; both counter-clockwise, while
// a typed angle follows ANGDIR as the command line reads it.
Value askAngle(Interpreter& in, const Args& args, bool orient) {
    Asking ask(in, args, true);
    const double base = ask.angleBase();
    auto result = [&](double absolute, std::string& problem) -> std::optional<Value> {
        const double value = normalized(orient ? absolute : absolute - base);
        if (auto refused = ask.refusal(value, false)) {
            problem = *refused;
            return std::nullopt;
        }
        return Value::real(value);
    };
    auto fromPoint = [&](const ardo::Point3& p, std::string& problem) -> std::optional<Value> {
        const ardo::Point3 from = ask.base().value_or(p);
        const ardo::Point3 to = ask.base() ? p : ask.secondPoint(p);
        return result(commands::angleBetween(from, to), problem);
    };
    return ask.loop(commands::pointRequest(ask.base()), "Requires valid numeric angle or second point.\n",
                    [&](const std::string& text, std::string& problem) -> std::optional<Value> {
                        if (const auto typed = commands::parseAngle(text))
                            return result(base + (ask.clockwise() ? -*typed : *typed), problem);
                        const auto p = commands::parsePoint(text, ask.lastPoint());
                        if (!p) return std::nullopt;
                        return fromPoint(*p, problem);
                    },
                    fromPoint);
}

Value getangleFn(Interpreter& in, const Args& args) { return askAngle(in, args, false); }
Value getorientFn(Interpreter& in, const Args& args) { return askAngle(in, args, true); }

Value getkwordFn(Interpreter& in, const Args& args) {
    Asking ask(in, args, false);
    return ask.loop({}, commands::kInvalidKeyword,
                    [](const std::string&, std::string&) -> std::optional<Value> { return std::nullopt; });
}

// (getstring [cr] [msg]): without cr a space ends the input, as it does at the prompt.
Value getstringFn(Interpreter& in, const Args& args) {
    lisp::checkCount(args, 0, 2);
    bool spaces = false;
    Args message;
    if (args.size() == 2) {
        spaces = !args[0].isNil();
        message.push_back(args[1]);
    } else if (args.size() == 1) {
        message.push_back(args[0]);
    }
    Asking ask(in, message, false);
    const PromptAnswer answer = ask.next({});
    std::string text = answer.text.value_or(std::string());
    if (!spaces) text = text.substr(0, text.find(' '));
    return Value::string(text);
}

Value initgetFn(Interpreter& in, const Args& args) {
    lisp::checkCount(args, 0, 2);
    InputRules rules;
    if (args.size() == 2 || (args.size() == 1 && args[0].kind() == Kind::Int)) rules.bits = lisp::intArg(args[0]);
    if (args.size() == 2 || (args.size() == 1 && args[0].kind() != Kind::Int))
        rules.keywords = lisp::stringArg(args.back());
    documentOf(in).inputRules() = rules;
    return Value();
}

// entsel and nentsel: an entity picked in a view or at a typed point, with the point.
Value entselFn(Interpreter& in, const Args& args) {
    Asking ask(in, args, false);
    if (args.empty()) ask.setQuestion("\nSelect object: ");
    InputRequest objects;
    objects.kind = InputRequest::Kind::Objects;
    const Drawing& drawing = ask.drawing();
    for (;;) {
        const PromptAnswer answer = ask.next(objects);
        std::optional<ardo::Point3> at = answer.point;
        if (!answer.entities.empty()) {
            const auto e = answer.entities.front();
            if (!at)
                if (const auto box = drawing.extents(static_cast<Handle>(e))) at = box->min;
            return lisp::makeList({Value::ename(e), pointValue(at.value_or(ardo::Point3{}))});
        }
        if (!at) {
            const std::string& text = *answer.text;
            if (text.empty()) return Value();
            if (auto word = ask.keyword(text)) return Value::string(*word);
            if (commands::matchKeyword(ardo::ResBuf::str(text), {"Last"})) {
                std::optional<Handle> last;
                drawing.forEachEntity([&](const EntityInfo& e) {
                    if (e.space == Space::Model) last = e.handle;
                    return true;
                });
                if (!last) return Value();
                const auto box = drawing.extents(*last);
                return lisp::makeList({Value::ename(static_cast<std::int64_t>(*last)),
                                       pointValue(box ? box->min : ardo::Point3{})});
            }
            at = commands::parsePoint(text, ask.lastPoint());
            if (!at) {
                ask.say("*Invalid selection*\nExpects a point or Last\n");
                continue;
            }
        }
        const auto hit = geometry::pickAt(drawing, *at, geometry::pickAperture(drawing));
        if (!hit) return Value();
        return lisp::makeList({Value::ename(static_cast<std::int64_t>(*hit)), pointValue(*at)});
    }
}

const lisp::Builtin functions[] = {
    {"GETPOINT", getpointFn, nullptr},   {"GETCORNER", getcornerFn, nullptr}, {"GETDIST", getdistFn, nullptr},
    {"GETANGLE", getangleFn, nullptr},   {"GETORIENT", getorientFn, nullptr}, {"GETINT", getintFn, nullptr},
    {"GETREAL", getrealFn, nullptr},     {"GETSTRING", getstringFn, nullptr}, {"GETKWORD", getkwordFn, nullptr},
    {"INITGET", initgetFn, nullptr},     {"ENTSEL", entselFn, nullptr},       {"NENTSEL", entselFn, nullptr},
};

}  // namespace

void defineInputFunctions(Interpreter& in) {
    for (const lisp::Builtin& b : functions) in.intern(b.name)->value = Value::subr(&b);
}

namespace {

// Runs one input function for a module: a nil answer is Enter, an error a cancel.
template <typename Take>
int askForModule(Interpreter& in, Value (*function)(Interpreter&, const Args&), const std::string& prompt, Take take) {
    try {
        const Value answer = function(in, {Value::string(prompt)});
        if (answer.isNil()) return ardo::RTNONE;
        take(answer);
        return ardo::RTNORM;
    } catch (const lisp::LispError&) {
        return ardo::RTCAN;
    }
}

}  // namespace

int askKeyword(Interpreter& in, const std::string& prompt, std::string& result) {
    return askForModule(in, getkwordFn, prompt, [&](const Value& v) { result = v.asString(); });
}

int askDistance(Interpreter& in, const std::string& prompt, double& result) {
    return askForModule(in, getdistFn, prompt, [&](const Value& v) { result = v.asReal(); });
}

}  // namespace cadhost
