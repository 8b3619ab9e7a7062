#include "cadhost/lisp/Value.h"

#include "cadhost/lisp/External.h"
#include "cadhost/lisp/LispFile.h"
#include "cadhost/lisp/SelectionSet.h"

namespace cadhost::lisp {

Value Value::string(std::string s) {
    Value x(Kind::Str);
    x.obj_ = std::make_shared<StrObj>(std::move(s));
    return x;
}

Value Value::cons(Value car, Value cdr) {
    Value x(Kind::List);
    x.obj_ = std::make_shared<Cons>(std::move(car), std::move(cdr));
    return x;
}

Value Value::usubr(std::shared_ptr<Lambda> l) {
    Value x(Kind::Usubr);
    x.obj_ = std::move(l);
    return x;
}

Value Value::exsubr(std::shared_ptr<External> e) {
    Value x(Kind::Exsubr);
    x.obj_ = std::move(e);
    return x;
}

Value Value::pickset(std::shared_ptr<SelectionSet> s) {
    Value x(Kind::Pickset);
    x.obj_ = std::move(s);
    return x;
}

Value Value::file(std::shared_ptr<LispFile> f) {
    Value x(Kind::File);
    x.obj_ = std::move(f);
    return x;
}

Value Value::catchError(std::string message) {
    Value x(Kind::CatchError);
    x.obj_ = std::make_shared<StrObj>(std::move(message));
    return x;
}

Lambda& Value::asLambda() const { return *static_cast<Lambda*>(obj_.get()); }
External& Value::asExternal() const { return *static_cast<External*>(obj_.get()); }
SelectionSet& Value::asPickset() const { return *static_cast<SelectionSet*>(obj_.get()); }
LispFile& Value::asFile() const { return *static_cast<LispFile*>(obj_.get()); }

namespace {
// Long or deeply nested lists would otherwise be freed by one recursive destructor call
// per cell; cells whose last owner goes away are queued and freed in a loop instead.
thread_local std::vector<std::shared_ptr<Object>> pendingCells;
thread_local bool draining = false;

void takeChild(Value& v) {
    if (v.kind() == Kind::List && v.object().use_count() == 1) {
        pendingCells.push_back(v.object());
        v = Value();
    }
}
}  // namespace

Cons::~Cons() {
    takeChild(car);
    takeChild(cdr);
    if (draining) return;
    draining = true;
    while (!pendingCells.empty()) {
        std::shared_ptr<Object> cell = std::move(pendingCells.back());
        pendingCells.pop_back();
        auto* c = static_cast<Cons*>(cell.get());
        takeChild(c->car);
        takeChild(c->cdr);
    }
    draining = false;
}

void ListBuilder::append(Value item) {
    Value cell = Value::cons(std::move(item), Value());
    Cons* added = static_cast<Cons*>(cell.object().get());
    if (last_)
        last_->cdr = std::move(cell);
    else
        head_ = std::move(cell);
    last_ = added;
}

void ListBuilder::endWith(Value tail) {
    if (last_) last_->cdr = std::move(tail);
}

Value makeList(const std::vector<Value>& items) {
    ListBuilder list;
    for (const Value& item : items) list.append(item);
    return list.take();
}

std::size_t listLength(const Value& list) {
    std::size_t n = 0;
    for (const Value* p = &list; p->isList(); p = &p->cdr()) ++n;
    return n;
}

}  // namespace cadhost::lisp
