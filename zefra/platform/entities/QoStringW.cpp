#include "zefra/platform/entities/QoStringW.h"

QoStringW::QoStringW(const wchar_t* text) : m_text(text ? text : L"") {}
