// A calibration line from a series of solutions.
//
//   zarnu script calibration.js [SERIES [CONCENTRATIONS [BAND [OUT.csv]]]]
//
//   SERIES           a file with one spectrum for each solution         (../dye.csv)
//   CONCENTRATIONS   of the spectra, in their order, with commas        (1,2,4,6,8,10, in umol/l)
//   BAND             x at which the absorbance is read                  (664, in nm)
//   OUT.csv          the table, its line and its figures of merit       (calibration.csv)
//
// The absorbance is the mean of the points within 2 of the band. A straight line through the points by least squares
// gives slope and intercept with their standard errors, r2, and by ICH Q2(R2) the limits of detection and of
// quantification: 3.3 and 10 times the residual standard deviation over the slope.

var HALF_WINDOW = 2;
var DETECTION = 3.3;
var QUANTIFICATION = 10;

function fail(text) {
    throw new Error(text + '\nusage: zarnu script calibration.js [SERIES [CONCENTRATIONS [BAND [OUT.csv]]]]');
}

function number(text) {
    var value = Number(text);
    if (String(text).replace(/\s/g, '') === '' || !isFinite(value))
        fail('"' + text + '" is no number.');
    return value;
}

function meanAt(spectrum, x) {
    var sum = 0, count = 0;
    for (var at = x - HALF_WINDOW; at <= x + HALF_WINDOW; ++at) {
        var y = spectrum.valueAt(at);
        if (y !== undefined) {
            sum += y;
            ++count;
        }
    }
    if (count === 0)
        fail('The spectra do not reach ' + x + '.');
    return sum / count;
}

// y = slope * x + intercept, with what is known of the line's quality
function straightLine(x, y) {
    var n = x.length, meanX = 0, meanY = 0;
    for (var i = 0; i < n; ++i) {
        meanX += x[i] / n;
        meanY += y[i] / n;
    }
    var sxx = 0, sxy = 0, syy = 0;
    for (i = 0; i < n; ++i) {
        sxx += (x[i] - meanX) * (x[i] - meanX);
        sxy += (x[i] - meanX) * (y[i] - meanY);
        syy += (y[i] - meanY) * (y[i] - meanY);
    }
    if (sxx === 0)
        fail('All concentrations are the same.');
    var line = {slope: sxy / sxx, fitted: [], residuals: []};
    line.intercept = meanY - line.slope * meanX;
    var squares = 0;
    for (i = 0; i < n; ++i) {
        line.fitted.push(line.slope * x[i] + line.intercept);
        line.residuals.push(y[i] - line.fitted[i]);
        squares += line.residuals[i] * line.residuals[i];
    }
    line.r2 = syy > 0 ? 1 - squares / syy : NaN;
    line.deviation = Math.sqrt(squares / (n - 2));
    line.slopeError = line.deviation / Math.sqrt(sxx);
    line.interceptError = line.deviation * Math.sqrt(1 / n + meanX * meanX / sxx);
    line.detection = DETECTION * line.deviation / line.slope;
    line.quantification = QUANTIFICATION * line.deviation / line.slope;
    return line;
}

function padded(text, width) {
    text = String(text);
    while (text.length < width)
        text = ' ' + text;
    return text;
}

if (args.length > 4)
    fail('There are too many arguments.');
var series = args.length > 0 ? workingPath(args[0]) : '../dye.csv';
var concentrations = (args.length > 1 ? args[1] : '1,2,4,6,8,10').split(',').map(number);
var band = number(args.length > 2 ? args[2] : 664);
var out = workingPath(args.length > 3 ? args[3] : 'calibration.csv');

var spectra = openFile(series)[0].spectra;
if (spectra.length !== concentrations.length)
    fail(series + ' holds ' + spectra.length + ' spectra, but there are ' + concentrations.length + ' concentrations.');
if (spectra.length < 3)
    fail('A line with an error needs three spectra or more.');

var values = spectra.map(function (spectrum) { return meanAt(spectrum, band); });
var line = straightLine(concentrations, values);

var rows = ['concentration,absorbance,fitted,residual'];
print('  concentration  absorbance      fitted    residual');
for (var i = 0; i < values.length; ++i) {
    rows.push([concentrations[i], values[i].toFixed(6), line.fitted[i].toFixed(6), line.residuals[i].toFixed(6)].join());
    print(padded(concentrations[i], 15) + padded(values[i].toFixed(5), 12) + padded(line.fitted[i].toFixed(5), 12) +
          padded(line.residuals[i].toFixed(5), 12));
}
var figures = [
    ['slope', line.slope], ['standard error of slope', line.slopeError],
    ['intercept', line.intercept], ['standard error of intercept', line.interceptError],
    ['r2', line.r2], ['residual standard deviation', line.deviation],
    ['limit of detection', line.detection], ['limit of quantification', line.quantification]
];
print('');
rows.push('', 'figure,value');
figures.forEach(function (figure) {
    rows.push(figure[0] + ',' + figure[1].toPrecision(7));
    print(padded(figure[0], 28) + padded(figure[1].toPrecision(figure[0] === 'r2' ? 7 : 4), 14));
});
writeText(out, rows.join('\n') + '\n');
print('\n' + out);
