unit Classes;

{ Every kind of class, object and interface. }

interface

type
  TShape = class;
  IShape = interface;
  IEvents = dispinterface;
  TOldShape = object;
  TShapeClass = class of TShape;

  IShape = interface(IUnknown)
    ['{0E3A7A50-0B5C-11D3-9D4B-0000F87A2C6B}']
    function GetArea: Double;
    procedure Move(DX, DY: Integer); safecall;
    property Area: Double read GetArea;
  end;

  IEvents = dispinterface
    ['{0E3A7A51-0B5C-11D3-9D4B-0000F87A2C6B}']
    procedure OnMove(X: Integer); dispid 1;
    function Count: Integer; dispid 2;
    property Name: WideString dispid 3;
    property Size: Integer readonly dispid 4;
    property Secret: Integer writeonly dispid 5;
  end;

  IEmpty = interface
  end;

  TOldShape = object
  private
    FX: Integer;
  public
    constructor Init(X: Integer);
    destructor Done; virtual;
    procedure Draw; virtual;
  end;

  TOldCircle = object(TOldShape)
    Radius: Integer;
  end;

  EShape = class(Exception);
  TNothing = class
  end;
  TStill = class(TObject) end;

  TShape = class(TInterfacedObject, IShape, IEmpty)
    FName: string;
  private
    FItems: array of IShape;
    Public, Private: Integer;
    Published: Boolean;
    function GetArea: Double; virtual; abstract;
    function GetItem(Index: Integer): IShape;
    procedure SetItem(Index: Integer; const Value: IShape);
  protected
    class function Default: TShape; dynamic;
    class procedure Register;
    procedure IShape.Move = MoveBy;
    function IShape.GetArea = ComputeArea;
    procedure WMPaint(var Message: TWMPaint); message WM_PAINT;
  public
    constructor Create(const AName: string); reintroduce; overload;
    destructor Destroy; override;
    procedure MoveBy(DX, DY: Integer); safecall;
    function ComputeArea: Double; cdecl;
    procedure Old; near; pascal;
    procedure Older; far; export;
    procedure Fast; stdcall;
    procedure Faster; register;
    property Items[Index: Integer]: IShape read GetItem write SetItem; default;
    property Grid[X, Y: Integer; const Name: string]: Integer read GetGrid;
    property Inner: IShape read FInner implements IShape, IEmpty;
    class property Shared: Integer read FShared;
  published
    property Name: string read FName write FName stored False;
    property Width: Integer index 1 read GetSize write SetSize default 10;
    property Height: Integer index 2 read GetSize write SetSize stored IsHeightStored nodefault;
    property Left: Integer read FPoint.X write FPoint.Y;
    property Color;
  automated
    procedure Run; dispid 7;
  end;

  TPacked = packed class
    Field: Integer platform;
  end;

implementation

constructor TOldShape.Init(X: Integer);
begin
  FX := X
end;

destructor TOldShape.Done;
begin
end;

procedure TOldShape.Draw;
begin
end;

function TShape.GetItem(Index: Integer): IShape;
begin
  Result := FItems[Index] as IShape
end;

class function TShape.Default: TShape;
begin
  Result := TShape.Create('default')
end;

class procedure TShape.Register;
begin
end;

constructor TShape.Create(const AName: string);
begin
  inherited Create;
  FName := AName
end;

destructor TShape.Destroy;
begin
  inherited
end;

end.
