// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/chart/Plot.h>
#include <zembra/chart/PlotGrid.h>
#include <zembra/paint/RenderSurface.h>
#include <zembra/scale/NumberFormat.h>
#include <zembra/series/AreaSeries.h>
#include <zembra/series/BandSeries.h>
#include <zembra/series/BarSeries.h>
#include <zembra/series/Bins.h>
#include <zembra/series/BoxPlotSeries.h>
#include <zembra/series/CandlestickSeries.h>
#include <zembra/series/Canvas.h>
#include <zembra/series/ColorMap.h>
#include <zembra/series/ColorScale.h>
#include <zembra/series/ContourSeries.h>
#include <zembra/series/ErrorBarSeries.h>
#include <zembra/series/FunctionSeries.h>
#include <zembra/series/HeatMapSeries.h>
#include <zembra/series/HistogramSeries.h>
#include <zembra/series/LineSeries.h>
#include <zembra/series/Quantile.h>
#include <zembra/series/ScatterSeries.h>
#include <zembra/series/StemSeries.h>
