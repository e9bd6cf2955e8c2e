#include <com/sun/star/bridge/oleautomation/Currency.hpp>
#include <com/sun/star/bridge/oleautomation/Date.hpp>
#include <com/sun/star/lang/XSingleComponentFactory.hpp>
#include <com/sun/star/script/BasicErrorException.hpp>
#include <com/sun/star/script/XInvocation.hpp>
#include <cppuhelper/implbase1.hxx>
#include <string_view>

#include "libreoffice/office.h"

// An object of the office that does nothing of its own: what a call costs by itself, what Basic passes, and
// how failures in the middle of a call come through.
namespace tovera::office {
namespace {

[[noreturn]] void fail(sal_Int32 number, const OUString& text) {
    throw css::script::BasicErrorException(text, {}, number, text);
}

OUString kindOf(const Any& value) {
    css::bridge::oleautomation::Currency currency;
    css::bridge::oleautomation::Date date;
    sal_Int64 whole = 0;
    double number = 0;
    auto text = value.getValueTypeName();
    if (value >>= currency) text += " " + OUString::number(currency.Value);
    if (value >>= date) text += " " + OUString::number(date.Value);
    if (value >>= whole)
        text += " " + OUString::number(whole);
    else if (value >>= number)
        text += " " + OUString::number(number);
    return text;
}

class Probe final : public cppu::WeakImplHelper1<css::script::XInvocation> {
  public:
    Reference<css::beans::XIntrospectionAccess> SAL_CALL getIntrospection() override { return {}; }

    Any SAL_CALL invoke(const OUString& name, const Sequence<Any>& arguments, Sequence<sal_Int16>&,
                        Sequence<Any>&) override {
        if (name == "Kind") return Any(kindOf(arguments[0]));
        return {};
    }
    void SAL_CALL setValue(const OUString& name, const Any&) override { getValue(name); }
    /// A form whose members fail.
    Any SAL_CALL getValue(const OUString& name) override {
        if (name.equalsIgnoreAsciiCase("name")) fail(76, "raised by the host");
        if (name.equalsIgnoreAsciiCase("hwnd")) fail(380, "raised by the host");
        return {};
    }
    sal_Bool SAL_CALL hasMethod(const OUString& name) override { return !hasProperty(name); }
    sal_Bool SAL_CALL hasProperty(const OUString& name) override {
        return name.equalsIgnoreAsciiCase("name") || name.equalsIgnoreAsciiCase("hwnd");
    }
};

/// A form whose texts are values of types that Basic has not got: a character, and a whole number that no
/// double holds.
class TypedForm final : public cppu::WeakImplHelper1<css::script::XInvocation> {
  public:
    Reference<css::beans::XIntrospectionAccess> SAL_CALL getIntrospection() override { return {}; }

    Any SAL_CALL invoke(const OUString&, const Sequence<Any>&, Sequence<sal_Int16>&,
                        Sequence<Any>&) override {
        return {};
    }
    void SAL_CALL setValue(const OUString&, const Any&) override {}
    Any SAL_CALL getValue(const OUString& name) override {
        constexpr sal_Unicode letter = u'\u00C9';
        if (name.equalsIgnoreAsciiCase("name")) return {&letter, cppu::UnoType<cppu::UnoCharType>::get()};
        return Any(sal_Int64{9007199254740993});
    }
    sal_Bool SAL_CALL hasMethod(const OUString&) override { return false; }
    sal_Bool SAL_CALL hasProperty(const OUString& name) override {
        return name.equalsIgnoreAsciiCase("name") || name.equalsIgnoreAsciiCase("caption");
    }
};

/// A session of a mail program, with its database and documents in one: it keeps what it was asked for.
class Session final : public cppu::WeakImplHelper1<css::script::XInvocation> {
  public:
    Reference<css::beans::XIntrospectionAccess> SAL_CALL getIntrospection() override { return {}; }

    Any SAL_CALL invoke(const OUString& name, const Sequence<Any>& arguments, Sequence<sal_Int16>&,
                        Sequence<Any>&) override {
        if (name == "Asked") return Any(asked());
        OUString first;
        if (arguments.hasElements()) arguments[0] >>= first;
        asked() += name + "(" + first + ") ";
        const bool givesObject = name == "GETDATABASE" || name == "CREATEDOCUMENT";
        return givesObject ? Any(Reference<XInterface>(static_cast<cppu::OWeakObject*>(this))) : Any();
    }
    void SAL_CALL setValue(const OUString& name, const Any&) override { asked() += name + "= "; }
    Any SAL_CALL getValue(const OUString&) override { return {}; }
    sal_Bool SAL_CALL hasMethod(const OUString&) override { return true; }
    sal_Bool SAL_CALL hasProperty(const OUString&) override { return false; }

  private:
    static OUString& asked() {
        static OUString all;
        return all;
    }
};

template <class Made>
class Factory final : public cppu::WeakImplHelper1<css::lang::XSingleComponentFactory> {
  public:
    Reference<XInterface> SAL_CALL createInstanceWithContext(const Context&) override {
        return static_cast<cppu::OWeakObject*>(new Made);
    }
    Reference<XInterface> SAL_CALL createInstanceWithArgumentsAndContext(const Sequence<Any>&,
                                                                         const Context& context) override {
        return createInstanceWithContext(context);
    }
};

}  // namespace
}  // namespace tovera::office

extern "C" SAL_DLLPUBLIC_EXPORT void* component_getFactory(const char* implementation, void*, void*) {
    using namespace tovera::office;
    css::uno::Reference<css::lang::XSingleComponentFactory> factory = new Factory<Probe>;
    if (std::string_view(implementation) == "tovera.tests.Session") factory = new Factory<Session>;
    if (std::string_view(implementation) == "tovera.tests.TypedForm") factory = new Factory<TypedForm>;
    factory->acquire();
    return factory.get();
}
