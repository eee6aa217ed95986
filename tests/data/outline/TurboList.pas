unit TurboList;

{$O+,F+,X+}

interface

uses Objects, Memory;

type
  PNode = ^TNode;
  TNode = object
    Next: PNode;
    constructor Init(ANext: PNode);
    destructor Done; virtual;
    procedure Draw; virtual;
  end;

  PTextNode = ^TTextNode;
  TTextNode = object(TNode)
    Text: PString;
    constructor Init(ANext: PNode; const AText: string);
    destructor Done; virtual;
    procedure Draw; virtual;
  private
    Width: Integer;
  end;

  TList = object
    Head: PNode;
    procedure ForEach(Action: Pointer);
    function Count: Integer;
  end;

implementation

constructor TNode.Init(ANext: PNode);
begin
  Next := ANext;
end;

destructor TNode.Done;
begin
end;

procedure TNode.Draw;
begin
end;

constructor TTextNode.Init(ANext: PNode; const AText: string);
begin
  TNode.Init(ANext);
  Text := NewStr(AText);
  if Text = nil then
    Fail;
end;

destructor TTextNode.Done;
begin
  DisposeStr(Text);
  TNode.Done;
end;

procedure TTextNode.Draw;
begin
  if Text <> nil then
    Write(Text^: Width);
end;

procedure TList.ForEach(Action: Pointer);
var
  Node: PNode;

  procedure Call(P: PNode); far;
  begin
    inline($FF / $D0);
  end;

begin
  Node := Head;
  while Node <> nil do
  begin
    Call(Node);
    Node := Node^.Next;
  end;
end;

function TList.Count: Integer;
var
  Total: Integer;

  procedure CountOne(P: PNode); far;
  begin
    Inc(Total);
  end;

begin
  Total := 0;
  ForEach(@CountOne);
  Count := Total;
end;

begin
  InitMemory;
end.
