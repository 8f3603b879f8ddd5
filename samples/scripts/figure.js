// A figure for a paper, one column wide.
//
//   zarnu script figure.js [FILE [OUT [CHAIN|- [XUNIT [YUNIT [FROM TO]]]]]]
//
//   FILE     the measured file
//   OUT      the name without ending, for .pdf, .svg and .png   (figure)
//   CHAIN    a template (.kzp) or a chain (.json); - for none
//   XUNIT    of a file that does not tell its own
//   YUNIT
//   FROM TO  the part to show, in XUNIT                         (all of it)
//
// Without arguments it draws the sample of polystyrene, cleaned and with the names of its main bands. The vector files
// are for the printer, the PNG has 600 dpi.

var WIDTH = 84, HEIGHT = 66; // mm: one column
var DPI = 600;
var NEAR = 6; // cm-1
var ASSIGNMENTS = [
    {x: 3026, name: 'ring C\u2013H'}, {x: 2924, name: 'CH_2 antisym.'}, {x: 2850, name: 'CH_2 sym.'},
    {x: 1601, name: 'ring'}, {x: 1493, name: 'ring'}, {x: 1452, name: 'CH_2 bend'},
    {x: 757, name: 'C\u2013H wag'}, {x: 698, name: 'ring bend'}
];
var USAGE = 'usage: zarnu script figure.js [FILE [OUT [CHAIN|- [XUNIT [YUNIT [FROM TO]]]]]]';

function fail(text) {
    throw new Error(text + '\n' + USAGE);
}

function number(text) {
    var value = Number(text);
    if (!isFinite(value))
        fail('"' + text + '" is no number.');
    return value;
}

function chainOf(path) {
    var chain = path ? new ZarnuProcessing(path) : new ZarnuProcessing();
    if (!path)
        chain.setApplyNothing();
    return chain;
}

if (args.length > 7 || args.length === 6)
    fail('There are too many arguments, or the end of the range is missing.');
var isSample = args.length === 0;
var out = workingPath(args.length > 1 ? args[1] : 'figure');
var chain = args.length > 2 ? args[2] : '-';
var item = openFile(isSample ? '../polystyrene.csv' : workingPath(args[0]))[0];
if (isSample)
    item.setUnits('wavenumber', 'absorbance');
else if (args.length > 3)
    item.setUnits(args[3], args.length > 4 ? args[4] : 'arbitrary');
item.setProcessing(chainOf(isSample ? '../clean-ir.json' : chain === '-' ? '' : workingPath(chain)));

function nameOf(peak) {
    var near = ASSIGNMENTS.filter(function (known) { return Math.abs(peak.center - known.x) <= NEAR; });
    return near.length > 0 ? near[0].name : '';
}

if (isSample) { // a column has room for the labels of the main bands
    item.removePeaks(item.peaks().filter(function (peak) { return nameOf(peak) === ''; }));
    item.peaks().forEach(function (peak, place) { item.setPeakAnnotation(place, nameOf(peak)); });
}
item.setProperties({
    'title.visible': false, 'peaks.decimals': 0, 'curve.pen.color': '#000000', 'curve.pen.width': 2.5,
    'axes.font.size': 24, 'axes.titleFont.size': 26, 'peaks.font.size': 20
});
if (args.length === 7)
    item.showRange(number(args[5]), number(args[6]));
else
    item.zoom();
['.pdf', '.svg', '.png'].forEach(function (ending) {
    exportPicture(item, out + ending, {width: WIDTH, height: HEIGHT, dpi: DPI});
    print(out + ending);
});
print(item.peaks().length + ' bands are labelled');
