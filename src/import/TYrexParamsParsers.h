#pragma once

class TParamsParsers;

/// The parameter parsers of all formats of the plug-in, made at the first call; any thread may make it.
TParamsParsers &yrexParamsParsers();
