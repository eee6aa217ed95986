unit Records;

interface

type
  TByteArray = packed array[0..32767] of Byte;
  PByteArray = ^TByteArray;
  TDigit = '0'..'9';
  TDigits = set of TDigit;
  TMatrix = array[1..3, 1..3] of Double;
  TDynamic = array of array of Integer;
  TControl = ^A..^Z;

  TPoint = record
    X, Y: Integer;
  end;

  TVariant = packed record
    case Kind: Byte of
      0: (AsInteger: Integer);
      1, 2: (AsDouble: Double; Exact: Boolean);
      3: (case Boolean of
            False: (Low, High: Word);
            True: (Name: string[7]));
  end;

  TShape = record
    Name: string;
    Corners: array[0..7] of TPoint;
    Style: (ssPlain, ssDotted);
    Bounds: record
      TopLeft, BottomRight: TPoint;
    end;
    case Integer of
      0: (Pen: Integer);
      1: (Brush: Integer)
  end;

  TStore = file of TShape;
  TRaw = file;
  THandle = type Integer;

const
  Origin: TPoint = (X: 0; Y: 0);
  Unit3: TMatrix = ((1, 0, 0), (0, 1, 0), (0, 0, 1));
  Vowels: set of Char = ['a', 'e', 'i', 'o', 'u'];

var
  Screen: Word absolute $B800;
  Grid: TDynamic;
  Current: TShape;

implementation

function Middle(const Shape: TShape): TPoint;
type
  TSum = record X, Y: Int64 end;
var
  Sum: TSum;
begin
  with Shape.Bounds, TopLeft do
  begin
    Sum.X := X + BottomRight.X;
    Sum.Y := Y + BottomRight.Y;
  end;
  Result.X := Sum.X div 2;
  Result.Y := Sum.Y div 2;
end;

end.
