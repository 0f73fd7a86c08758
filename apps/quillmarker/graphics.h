#pragma once

#include <memory>

class QGuiApplication;

namespace quillmarker::tool
{

/// What pages need of Qt: fonts and painting. It needs no display, and nothing is heard of what Qt would say on standard
/// error. One in a process, made in its first thread before others put documents on pages.
class Graphics
{
public:
    Graphics();
    ~Graphics();
    Graphics(const Graphics&) = delete;
    Graphics& operator=(const Graphics&) = delete;

private:
    int m_argumentCount = 1;
    std::unique_ptr<QGuiApplication> m_application;
};

}  // namespace quillmarker::tool
